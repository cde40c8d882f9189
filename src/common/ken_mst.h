#pragma once

// ken_mst, "マスター検索": the small window that finds a row of a master by name, by reading or by number, with a grid
// of kana for those who prefer to pick the first one. It stays open beside the other screens until a row is chosen or
// it is closed; `mstkenflg` of the frame holds its mode meanwhile.
//
// Matching ignores case, width and the kind of kana: the grid writes hiragana and readings are katakana.
// For the page: `focus` is a wish, `ended` set means that the window closes and `search_result` is handed over.

#include "base/settings.h"
#include "base/sheet.h"

#include <array>
#include <optional>
#include <span>

namespace common {

/// What is searched under a mode. An empty `spare` field: its box is out of sight.
struct SearchMode {
    int mode;
    QStringView title;
    QStringView table; ///< of `comsys.mdb`
    QStringView key;
    QStringView number;
    QStringView name;
    QStringView reading;
    QStringView spare;
};

inline constexpr int search_employees = 3;

/// Null for a mode that this product doesn't have.
const SearchMode* search_mode(int mode);

class ken_mst {
public:
    static constexpr QStringView caption = u"マスター検索";
    static constexpr QStringView mojikirikae_caption = u"文字切替";
    static constexpr base::Rgb head_back{235, 235, 255};

    /// Elements of `kenatai`.
    enum Box { name_box, reading_box, spare_box, number_box };
    /// Columns of `hyou`; the first is its fixed one.
    enum Column { row_col, number_col, name_col, key_col };
    enum class SearchControl { Kenatai, Hyou };
    struct Wish {
        SearchControl control;
        int element = 0;
        friend bool operator==(const Wish&, const Wish&) = default;
    };

    /// Opens the search: `mstkenflg`, which outlives it, takes the mode. The mode must be one of search_mode().
    ken_mst(const base::Settings& settings, QString& mstkenflg, int mode);
    ~ken_mst();
    ken_mst(const ken_mst&) = delete;
    ken_mst& operator=(const ken_mst&) = delete;

    QString midasi; ///< title of what is searched
    std::array<QString, 4> kenatai;
    base::Sheet hyou;
    base::Sheet hyou_go{3, 6}; ///< row 0 the kana of the open line, rows 1 and 2 the heads
    QString search_result;     ///< the number chosen; that of the whole company is empty
    bool chosen = false;
    bool ended = false;
    std::optional<Wish> focus;

    bool has_box(int element) const;
    QString page_name() const; ///< of the page of kana in view: "通常"

    void 書式設定_抽出リスト(); ///< the list with its heading alone
    void 書式設定_五十音();     ///< the kana of the page in view, with its first line open
    /// Lists what holds the text of every filled box, and has the number if one is typed; with empty boxes all. Throws
    /// store::Error; the list is empty then.
    void 抽出処理();

    void Form_Activate();
    void kenatai_Change(int element, const QString& text) { kenatai[element] = text; }
    bool kenatai_KeyDown(int element, int key_code);
    void hyou_Click(int row);        ///< chooses the row; by Enter too
    bool hyou_KeyDown(int key_code); ///< before the cursor moves; true if the key went back to the boxes
    void hyou_go_Click(base::Cell cell);
    void mojikirikae_Click();
    void botan_Click(int element); ///< 0 closes without a choice, 1 searches

private:
    void open_line(base::Cell head);
    void end();
    bool to_next_box(int element);
    bool to_list();

    const base::Settings& m_settings;
    QString& m_mstkenflg;
    const SearchMode& m_mode;
    int m_page = 0;
};

/// The text as the search compares it: one form for both widths, both cases and both kinds of kana.
///   folded(u"ヤﾏﾀﾞ") == folded(u"やまだ")      folded(u"ＡＢ") == folded(u"ab")
QString folded(const QString& text);

} // namespace common
