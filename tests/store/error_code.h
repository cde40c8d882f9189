#pragma once

#include "store/error.h"

#include <optional>

/// The code of the error that the work throws; nothing if it succeeds.
template <typename Work>
std::optional<store::Code> code_of(Work work) {
    try {
        work();
    } catch (const store::Error& error) {
        return error.code();
    }
    return std::nullopt;
}
