#pragma once

// Alone with the data of a tree.

#include "base/settings.h"
#include "platform/program_lock.h"

#include <chrono>

namespace install {

/// As long as this stands neither the program nor the exchange manager starts on the data. std::runtime_error where one
/// is at work.
class Alone {
public:
    explicit Alone(const base::Settings& settings);

private:
    platform::ProgramLock m_program;
    platform::ProgramLock m_manager;
};

/// The same of programs of other trees that work on this company's server, as far as they are connected to it: whoever
/// has the turn is as well, under a name of his own. One that has just ended may stand there for a moment, and is
/// waited for. std::runtime_error where one is open, store::Error where the server can't be asked.
void refuse_programs_on_server(const base::Settings& settings, std::chrono::milliseconds patience);

} // namespace install
