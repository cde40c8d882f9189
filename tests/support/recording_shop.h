#pragma once

// The print shop of the tests: keeps what was painted, and tells it as a text that a person can read.

#include "base/literals.h"
#include "reports/pages/page.h"
#include "reports/pages/print_surface.h"

#include <QStringList>
#include <vector>

namespace support {

using namespace base;

struct RecordedPage {
    QStringList texts; ///< "y x size text", in the order of painting
    std::vector<reports::LineMark> lines;
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
    reports::Place margin;
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
        reports::Place margin() const override { return m_shop.margin; }
        void new_page() override { job().pages.emplace_back(); }
        void set_font(QStringView family, double size, reports::Weight weight) override {
            m_font = mm(size);
            if (family != u"ＭＳ 明朝" || weight != reports::Weight::Bold)
                m_font += u" another font"_s;
        }
        void text(reports::Place place, const QString& text) override {
            job().pages.back().texts
                << u"%1 %2 %3 %4"_s.arg(mm(place.y), 7).arg(mm(place.x), 7).arg(m_font, 6).arg(text);
        }
        void line(reports::Place from, reports::Place to, int width) override {
            job().pages.back().lines.push_back({from, to, width});
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
inline QStringList told_lines(const std::vector<reports::LineMark>& lines) {
    const auto same = [](reports::Place a, reports::Place b) {
        return qAbs(a.x - b.x) < 0.001 && qAbs(a.y - b.y) < 0.001;
    };
    const auto follows = [&](const reports::LineMark& a, const reports::LineMark& b, reports::Place by) {
        return a.width == b.width && same(b.from - a.from, by) && same(b.to - a.to, by);
    };
    const auto shown = [](reports::Place place) { return u"(%1 %2)"_s.arg(mm(place.x), mm(place.y)); };
    QStringList told;
    for (size_t i = 0; i < lines.size();) {
        const reports::LineMark& first = lines[i];
        const reports::LineMark& second = lines[std::min(i + 1, lines.size() - 1)];
        const reports::Place by = second.from - first.from;
        size_t count = 1;
        while (i + count < lines.size() && follows(lines[i + count - 1], lines[i + count], by))
            ++count;
        told << u"%1 %2-%3"_s.arg(first.width).arg(shown(first.from), shown(first.to));
        if (count > 1)
            told.back() += u" %1 times by %2"_s.arg(count).arg(shown(by));
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
