#include "ui/paper/pdf_file.h"

#include "base/literals.h"
#include "platform/whole_file.h"
#include "ui/paper/printer_surface.h"

#include <QDateTime>
#include <QDir>

namespace ui {

using namespace base;

namespace {

/// What every file system takes as part of a name.
QString name_part(QString title) {
    for (QChar& c : title)
        if (!c.isLetterOrNumber())
            c = u'_';
    return title.isEmpty() ? u"帳票"_s : title;
}

} // namespace

PdfFile::PdfFile(const reports::PrintJob& job) : m_report(job.report), m_writer(&m_bytes) {
    m_bytes.open(QIODevice::WriteOnly);
    m_writer.setPageMargins(QMarginsF());
    m_writer.setTitle(job.name);
    m_writer.setCreator(u"就業録"_s);
}

void PdfFile::new_page(reports::Orientation orientation) {
    set_paper(m_writer, orientation);
    has_pages() ? m_writer.newPage() : m_painter.begin(&m_writer);
}

PdfFile::Written PdfFile::write(const QString& folder, const QDateTime& time) {
    m_painter.end();
    QDir().mkpath(folder);
    const QString name = folder + name_part(m_report) + time.toString(u"_yyyyMMdd_HHmmss"_s);
    Written written{name + u".pdf"_s, {}};
    for (int number = 2;; ++number) {
        written.failure = platform::write_new_file(written.path, m_bytes.data(), platform::Durability::Disk);
        if (written.failure != std::errc::file_exists)
            return written;
        written.path = u"%1_%2.pdf"_s.arg(name).arg(number);
    }
}

} // namespace ui
