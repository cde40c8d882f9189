#include "reports/printing/rovena_print.h"

#include "base/literals.h"
#include "base/numbers.h"

namespace reports {

using namespace base;

namespace {

constexpr QStringView font_name = u"ＭＳ 明朝";

double first_three_characters(double number) {
    return decimal_val(QString::number(number, 'f').left(3));
}

void tell_missing_printer(platform::Host& host) {
    host.tell(u"指定のプリンターが見つかりません。\n\n"
              u"「マスター」内の「システム」ページからプリンターを設定してください"_s,
        u"プリンター未設定"_s);
}

} // namespace

Place print_offset(Place margin, const PrinterSetting& setting) {
    return Place{.x = first_three_characters(margin.x), .y = first_three_characters(margin.y)} + setting.offset;
}

void 印字出力(PrintSurface& surface, Place offset, const QString& 文字列, Place place) {
    surface.text(place - offset, 文字列);
}

void paint(const Page& page, Place offset, PrintSurface& surface) {
    double size = 0;
    for (const TextMark& mark : page.texts) {
        if (mark.size != size)
            surface.set_font(font_name, size = mark.size, Weight::Bold);
        印字出力(surface, offset, mark.text, mark.place);
    }
    for (const LineMark& line : page.lines)
        surface.line(line.from - offset, line.to - offset, line.width);
}

void 印刷ジョブ名設定(PrintJob& job) {
    job.name = u"ＭＥＲＩＤＡＮ　業務帳票"_s;
}

Printed print_pages(
    const PrintTarget& target, Layout layout, const QString& report, const std::function<Pages(QDate today)>& make) {
    const PrinterSetting setting = printer_setting(layout, target.session.tables);
    PrintJob job{
        .DeviceName = setting.name, .name = {}, .orientation = 印刷設定取得(layout).orientation, .report = report};
    印刷ジョブ名設定(job);
    const std::unique_ptr<PrintSurface> surface = target.shop.open(job);
    if (!surface) {
        tell_missing_printer(target.session.host);
        return Printed::NoPrinter;
    }
    const Place offset = print_offset(surface->margin(), setting);
    target.session.host.yield();
    const Pages pages = make(target.session.host.now().date());
    if (pages.empty())
        return Printed::Nothing;
    for (const Page& page : pages) {
        surface->new_page();
        paint(page, offset, *surface);
    }
    return surface->end() ? Printed::Yes : Printed::Failed;
}

} // namespace reports
