#include "overview/overview_pages.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "overview/picture.h"
#include "reports/pages/page_frame.h"

namespace overview {

using namespace base;
using namespace reports;

namespace {

constexpr double day_width = 6.2; ///< mm, as all widths here
constexpr double count_width = 6.5;

struct PaperColumn {
    int col;
    double width;
};

std::vector<PaperColumn> paper_columns() {
    std::vector<PaperColumn> columns{{column::number, 11}, {column::name, 23}};
    for (int col = column::first_day; col < column::worked; ++col)
        columns.push_back({col, day_width});
    for (const int col : {column::worked, column::leave, column::holiday_work})
        columns.push_back({col, count_width});
    columns.push_back({column::work_time, 12.8});
    columns.push_back({column::off, count_width});
    return columns;
}

class PageOfRows {
public:
    PageOfRows(Page& page, const Sheet& hyou) : m_page(page), m_hyou(hyou) {}

    void head(const PageHead& head, QDate today, int number) {
        constexpr HeadLine standing{.place = {.x = 90, .y = 9}, .size = 10};
        constexpr HeadLine legend{.place = {.x = 90, .y = 15}};
        constexpr HeadLine page_number{.place = {.x = 270, .y = 16}};
        add_head_line(m_page, title_line, head.title);
        add_head_line(m_page, standing, head.standing);
        add_head_line(m_page, legend, u"下線は、確認が必要な日です"_s);
        add_print_date(m_page, today);
        add_head_line(m_page, page_number, digits(number) + u"　ページ"_s);
        add_box(m_page, constants().table);
    }

    /// A day has its weekday below it.
    void headings() {
        each_column([this](int col, double x, double width) {
            if (x > constants().table.left)
                add_vertical_line(m_page, constants().table, x);
            const double top = constants().table.top;
            if (!day_row(col))
                return add_centred(m_page, m_hyou(0, col), heading_size, {.x = x, .y = constants().heading_y()}, width);
            add_centred(m_page, m_hyou(0, col), day_size, {.x = x, .y = top + 0.5}, width);
            add_centred(m_page, m_hyou(1, col), day_size, {.x = x, .y = top + 3.1}, width);
        });
    }

    void row(int r, int on_page) {
        const double y = constants().row_y(constants().first_row + on_page);
        each_column([&](int col, double x, double width) {
            add_centred(m_page, m_hyou(r, col), cell_size, {.x = x, .y = y}, width);
            if (!m_hyou.Look(r, col).tip.isEmpty())
                underline(x, y + below_text, width);
        });
    }

    static const PageConstants& constants() { return 印刷設定取得(Layout::WorkTime); }

private:
    static constexpr double day_size = 7; ///< points
    static constexpr double below_text = 2.9;

    template <typename Show>
    void each_column(Show show) {
        double x = constants().table.left;
        for (const auto& [col, width] : paper_columns()) {
            show(col, x, width);
            x += width;
        }
    }

    void underline(double x, double y, double width) {
        m_page.lines.push_back({{.x = x + 0.6, .y = y}, {.x = x + width - 0.6, .y = y}, outer_line});
    }

    Page& m_page;
    const Sheet& m_hyou;
};

} // namespace

Pages overview_pages(const Sheet& hyou, const PageHead& head, QDate today) {
    Pages pages;
    for (int r = heading_rows; r < hyou.Rows(); ++r) {
        const int on_page = (r - heading_rows) % PageOfRows::constants().rows();
        if (on_page == 0)
            pages.emplace_back();
        PageOfRows page(pages.back(), hyou);
        if (on_page == 0) {
            page.head(head, today, int(pages.size()));
            page.headings();
        }
        page.row(r, on_page);
    }
    return pages;
}

} // namespace overview
