#include "platform/terminal.h"

#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <termios.h>
#include <unistd.h>
#endif

namespace platform {

namespace {

constexpr char interrupt = '\x03';

#ifdef Q_OS_WIN

bool on_terminal() {
    return _isatty(_fileno(stdin)) != 0;
}

/// Typing is not shown as long as this stands.
class Unseen {
public:
    Unseen() {
        GetConsoleMode(m_console, &m_was);
        SetConsoleMode(m_console, m_was & ~DWORD(ENABLE_ECHO_INPUT));
    }
    ~Unseen() { SetConsoleMode(m_console, m_was); }
    Unseen(const Unseen&) = delete;
    Unseen& operator=(const Unseen&) = delete;

private:
    HANDLE m_console = GetStdHandle(STD_INPUT_HANDLE);
    DWORD m_was = 0;
};

#else

bool on_terminal() {
    return isatty(STDIN_FILENO) != 0;
}

/// Typing is not shown as long as this stands. Ctrl-C comes as a character, for a program that it ended would leave the
/// terminal so.
class Unseen {
public:
    Unseen() {
        tcgetattr(STDIN_FILENO, &m_was);
        termios unseen = m_was;
        unseen.c_lflag &= ~tcflag_t(ECHO | ISIG);
        unseen.c_lflag |= ECHONL;
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &unseen);
    }
    ~Unseen() { tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_was); }
    Unseen(const Unseen&) = delete;
    Unseen& operator=(const Unseen&) = delete;

private:
    termios m_was{};
};

#endif

} // namespace

void settle_terminal() {
#ifdef Q_OS_WIN
    SetConsoleOutputCP(GetACP());
    SetConsoleCP(GetACP());
#endif
}

std::optional<QString> ask_secret(const QString& prompt) {
    if (!on_terminal())
        return std::nullopt;
    const Unseen unseen;
    std::fputs(qPrintable(prompt), stderr);
    std::fflush(stderr);
    std::string line;
    if (!std::getline(std::cin, line) || line.find(interrupt) != std::string::npos)
        throw std::runtime_error("broken off");
    return QString::fromLocal8Bit(line.data(), qsizetype(line.size()));
}

} // namespace platform
