#pragma once

// The print shop of the tests: keeps what was painted, and tells it as a text that a person can read.

#include "base/literals.h"
#include "reports/pages/print_surface.h"

#include <QStringList>
#include <vector>

namespace support {

using namespace base;

struct RecordedLine {
    double x1, y1, x2, y2;
    int width;
};

struct RecordedPage {
    QStringList texts; ///< "y x size text", in the order of painting
    std::vector<RecordedLine> lines;
};

struct RecordedJob {
    reports::PrintJob job;
    std::vector<RecordedPage> pages;
    bool ended = false;
};

inline QString mm(double number) {
    const QString text = QString::number(number, 'f', 2);
    return text == u"-0.00"_s ? u"0.00"_s : text;
}

class RecordingShop : public reports::PrintShop {
public:
    QStringList printers{u"PDF"_s};
    reports::Margin margin;
    std::vector<RecordedJob> jobs;

    std::unique_ptr<reports::PrintSurface> open(const reports::PrintJob& job) override {
        if (!printers.contains(job.DeviceName))
            return nullptr;
        jobs.push_back({job, {}});
        return std::make_unique<Surface>(*this, jobs.size() - 1);
    }

private:
    class Surface : public reports::PrintSurface {
    public:
        Surface(RecordingShop& shop, size_t index) : m_shop(shop), m_index(index) {}
        reports::Margin margin() const override { return m_shop.margin; }
        void new_page() override { job().pages.emplace_back(); }
        void set_font(QStringView family, double size, reports::Weight weight) override {
            m_font = mm(size);
            if (family != u"ＭＳ 明朝" || weight != reports::Weight::Bold)
                m_font += u" another font"_s;
        }
        void text(double x, double y, const QString& text) override {
            job().pages.back().texts << u"%1 %2 %3 %4"_s.arg(mm(y), 7).arg(mm(x), 7).arg(m_font, 6).arg(text);
        }
        void line(double x1, double y1, double x2, double y2, int width) override {
            job().pages.back().lines.push_back({x1, y1, x2, y2, width});
        }
        bool end() override { return job().ended = true; }

    private:
        RecordedJob& job() { return m_shop.jobs[m_index]; }
        RecordingShop& m_shop;
        size_t m_index;
        QString m_font;
    };
};

/// Lines that follow each other at one distance are told as one: "8 (20.00 31.00)-(200.00 31.00) 3 times by
/// (0.00 6.00)".
inline QStringList told_lines(const std::vector<RecordedLine>& lines) {
    const auto same = [](double a, double b) { return qAbs(a - b) < 0.001; };
    const auto follows = [&](const RecordedLine& a, const RecordedLine& b, double dx, double dy) {
        return a.width == b.width && same(b.x1 - a.x1, dx) && same(b.x2 - a.x2, dx) && same(b.y1 - a.y1, dy) &&
               same(b.y2 - a.y2, dy);
    };
    QStringList told;
    for (size_t i = 0; i < lines.size();) {
        const RecordedLine& first = lines[i];
        const RecordedLine& second = lines[std::min(i + 1, lines.size() - 1)];
        const double dx = second.x1 - first.x1, dy = second.y1 - first.y1;
        size_t count = 1;
        while (i + count < lines.size() && follows(lines[i + count - 1], lines[i + count], dx, dy))
            ++count;
        told << u"%1 (%2 %3)-(%4 %5)"_s.arg(first.width).arg(mm(first.x1), mm(first.y1), mm(first.x2), mm(first.y2));
        if (count > 1)
            told.back() += u" %1 times by (%2 %3)"_s.arg(count).arg(mm(dx), mm(dy));
        i += count;
    }
    return told;
}

inline QString told(const RecordedJob& job) {
    QString text = u"%1, %2\n"_s.arg(
        job.job.name, job.job.orientation == reports::Orientation::Portrait ? u"portrait"_s : u"landscape"_s);
    for (const RecordedPage& page : job.pages)
        text += u"page\n%1\nlines\n%2\n"_s.arg(page.texts.join(u'\n'), told_lines(page.lines).join(u'\n'));
    return text;
}

} // namespace support
