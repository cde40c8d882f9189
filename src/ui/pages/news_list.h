#pragma once

// `hyou` of the information page: an item a row, its picture beside its text. A row with a link is pressed by mouse or
// key. Pictures are read one at a time while the event loop has nothing else to do.

#include "base/sheet.h"

#include <QAbstractButton>
#include <QMap>
#include <QScrollArea>
#include <functional>

class QLabel;
class QVBoxLayout;

namespace ui {

/// One item. Without a link it is only read.
class NewsRow : public QAbstractButton {
    Q_OBJECT
public:
    NewsRow(const base::Sheet& hyou, int row, bool is_link, QWidget* parent);

    /// How large the picture may be, in the screen's own pixels.
    QSize picture_room() const;
    /// Takes the room beside the text; the picture must fit into it.
    void show_picture(const QImage& picture);
    bool has_picture() const { return m_has_picture; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    bool m_is_link;
    QLabel* m_picture;
    bool m_has_picture = false;
};

/// The acts of the page's form. All must be set.
struct NewsActs {
    std::function<bool(int row)> is_link;
    std::function<void(int row)> hyou_Click;
    std::function<void(int row)> drop_picture; ///< what the file holds isn't a picture
};

class NewsList : public QScrollArea {
    Q_OBJECT
public:
    /// The sheet outlives the list. Nothing is shown before the first refresh().
    NewsList(const base::Sheet& hyou, NewsActs acts, QWidget* parent);

    /// Shows what the sheet holds now. Rows that are the same stay, with the pictures that they have.
    void refresh();

    /// From top to bottom.
    QList<NewsRow*> rows() const { return m_rows.values(); }

private:
    void make_rows();
    void read_later();
    void read_next_picture();

    const base::Sheet& m_hyou;
    NewsActs m_acts;
    QWidget* m_content;
    QVBoxLayout* m_column;
    QMap<int, NewsRow*> m_rows; ///< by their row in the sheet
    QStringList m_shown;        ///< texts and links of the rows that stand
    QList<int> m_unread;        ///< rows whose picture isn't read yet
};

} // namespace ui
