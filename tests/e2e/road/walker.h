#pragma once

// Walker: one company's install tree with the desktop program over it, walked along a road. At the first thing that
// isn't as it must be it throws a RoadError that names the row.

#include "e2e/road/boxes.h"
#include "e2e/road/clerk.h"
#include "e2e/road/desk.h"
#include "support/person.h"
#include "ui/program.h"

#include <QMap>
#include <chrono>
#include <functional>
#include <optional>

namespace e2e {

class Walker {
public:
    /// `root` is the folder of the install tree. The program is started with the first step.
    Walker(Desk& desk, Pictures& pictures, const QString& root);

    /// In the road's steps $1 stands for the first of the arguments, and so on.
    void walk(const QString& road, const QStringList& arguments = {});

    /// Told after each step how long it took; the start of the program is the first one's.
    std::function<void(const Step&, std::chrono::milliseconds)> walked = [](const Step&, std::chrono::milliseconds) {};

private:
    using Act = void (*)(Walker& at, const Step& step);
    static const QMap<QString, Act> acts; ///< by the first word of a row

    void start();
    QWidget& window();
    Clerk clerk() { return Clerk(window()); }
    const base::Settings& settings() { return m_program->session().settings; }

    void click(const Step& step);
    void see(const Step& step);
    void rows(const Step& step);
    QStringList texts_of(const QString& name);
    void same(const Step& step);
    void move(const QString& file, const QString& from, const QString& to);
    void printed(const Step& step);
    void make_file(const Step& step);
    void leave();
    void restore();

    Desk& m_desk;
    Pictures& m_pictures;
    Boxes m_boxes{m_pictures};
    QString m_root;
    std::optional<ui::Program> m_program;
    support::PaintedWords m_painted;
    QMap<QString, QStringList> m_kept;
};

} // namespace e2e
