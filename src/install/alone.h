#pragma once

// Alone with the data of a tree.

#include "base/settings.h"
#include "platform/program_lock.h"

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

} // namespace install
