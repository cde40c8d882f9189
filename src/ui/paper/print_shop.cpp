#include "ui/paper/print_shop.h"

#include "base/literals.h"
#include "platform/paths.h"
#include "store/files.h"
#include "ui/paper/pdf_file.h"
#include "ui/paper/printer_surface.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <functional>

namespace ui {

using namespace base;

namespace {

constexpr QStringView trouble_title = u"印刷エラー";

/// A job for a printer with paper.
class PaperJob : public PainterSurface {
public:
    PaperJob(std::unique_ptr<QPrinter> printer, reports::Place margin, platform::Host& host)
        : PainterSurface(m_painter, margin), m_printer(std::move(printer)), m_host(host) {}

    ~PaperJob() override {
        if (m_painter.isActive())
            m_printer->abort();
    }

    void new_page() override {
        draw_waiting_lines();
        m_works = m_works && (m_painter.isActive() ? m_printer->newPage() : m_painter.begin(m_printer.get()));
    }

    bool end() override {
        draw_waiting_lines();
        if (m_painter.isActive())
            m_works = m_painter.end() && m_printer->printerState() != QPrinter::Error && m_works;
        if (!m_works)
            m_host.tell(u"プリンターに出力できません。\n"_s + m_printer->printerName(), trouble_title.toString());
        return m_works;
    }

private:
    std::unique_ptr<QPrinter> m_printer;
    QPainter m_painter;
    platform::Host& m_host;
    bool m_works = true;
};

/// A job for a PDF file, or for a part of one.
class PdfJob : public PainterSurface {
public:
    using HandOver = std::function<bool()>;

    PdfJob(std::shared_ptr<PdfFile> file, reports::Orientation orientation, HandOver hand_over)
        : PainterSurface(file->painter()), m_file(std::move(file)), m_orientation(orientation),
          m_hand_over(std::move(hand_over)) {}

    void new_page() override {
        draw_waiting_lines();
        m_file->new_page(m_orientation);
    }

    bool end() override { return PainterSurface::end() && m_hand_over(); }

private:
    std::shared_ptr<PdfFile> m_file;
    reports::Orientation m_orientation;
    HandOver m_hand_over;
};

std::unique_ptr<reports::PrintSurface> open_paper(const reports::PrintJob& job, platform::Host& host) {
    const QPrinterInfo info = QPrinterInfo::printerInfo(job.DeviceName);
    if (info.isNull())
        return nullptr;
    auto printer = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
    printer->setDocName(job.name);
    printer->setFullPage(true);
    set_paper(*printer, job.orientation);
    const QMarginsF margins = QPageLayout(printer->pageLayout().pageSize(), printer->pageLayout().orientation(),
        printer->pageLayout().minimumMargins(), printer->pageLayout().units())
                                  .margins(QPageLayout::Millimeter);
    return std::make_unique<PaperJob>(
        std::move(printer), reports::Place{.x = margins.left(), .y = margins.top()}, host);
}

QString reason(const std::error_code& failure) {
    if (failure == std::errc::no_space_on_device)
        return u"ディスクの空き容量が足りません。"_s;
    if (failure == std::errc::read_only_file_system || failure == std::errc::permission_denied)
        return u"読み取り専用のため、書き込めません。"_s;
    if (failure == std::errc::no_such_file_or_directory || failure == std::errc::not_a_directory)
        return u"フォルダーを作れません。"_s;
    return QString::fromLocal8Bit(failure.message());
}

} // namespace

QString print_folder(const base::Settings& settings) {
    return store::own_path(settings, settings.local_root, u"data/print/");
}

std::unique_ptr<reports::PrintSurface> DesktopPrintShop::open(const reports::PrintJob& job) {
    return job.DeviceName == pdf_printer ? open_pdf(job) : open_paper(job, m_session.host);
}

std::unique_ptr<reports::PrintSurface> DesktopPrintShop::open_pdf(const reports::PrintJob& job) {
    auto file = m_gathered ? m_gathered : std::make_shared<PdfFile>(job);
    if (m_gathering)
        m_gathered = file;
    return std::make_unique<PdfJob>(
        file, job.orientation, [this, &file = *file] { return &file == m_gathered.get() || put_out(file); });
}

void DesktopPrintShop::begin_gathering() {
    m_gathering = true;
}

void DesktopPrintShop::end_gathering() {
    m_gathering = false;
    if (const auto gathered = std::exchange(m_gathered, nullptr))
        put_out(*gathered);
}

bool DesktopPrintShop::put_out(PdfFile& file) {
    if (!file.has_pages())
        return true;
    platform::Host& host = m_session.host;
    const PdfFile::Written written = file.write(print_folder(m_session.settings), host.now());
    const QString path = platform::native(written.path);
    if (written.failure) {
        host.tell(
            u"ＰＤＦファイルを書き込めません。\n%1\n%2"_s.arg(reason(written.failure), path), trouble_title.toString());
        return false;
    }
    m_file = path;
    host.open_document(path); // a desktop without a viewer often says that it opened it: the screen says where it lies
    return true;
}

} // namespace ui
