#include "ui/application.h"

#include "platform/file_error.h"
#include "platform/program_lock.h"
#include "store/error.h"

namespace ui {

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const store::Error& error) {
        m_host.tell(error.text(), error_title.toString());
    } catch (const platform::LockError& error) {
        m_host.tell(QString::fromUtf8(error.what()), error_title.toString());
    } catch (const platform::FileError& error) {
        m_host.tell(error.text(), error_title.toString());
        exit(EXIT_FAILURE);
    } catch (const std::exception& error) {
        m_host.tell(QString::fromUtf8(error.what()), error_title.toString());
        exit(EXIT_FAILURE);
    }
    return true;
}

} // namespace ui
