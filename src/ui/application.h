#pragma once

// The one place where what breaks underneath becomes a text that the person sees. An error in the middle of the work is
// told and the program goes on with the page as it was, so that what was typed isn't lost; a file of the installation
// that isn't there ends the program.

#include "platform/host.h"

#include <QApplication>

namespace ui {

/// The title of every box that tells an error.
inline constexpr QStringView error_title = u"就業録";

class Application : public QApplication {
    Q_OBJECT
public:
    Application(int& argc, char** argv, platform::Host& host) : QApplication(argc, argv), m_host(host) {}

    platform::Host& host() const { return m_host; }

    bool notify(QObject* receiver, QEvent* event) override;

private:
    platform::Host& m_host;
};

} // namespace ui
