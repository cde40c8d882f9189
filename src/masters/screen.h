#pragma once

// The masters are screens as frame/screen.h has them.

#include "frame/screen.h"

namespace masters {

using frame::Busy;
using frame::Control;
using frame::Focus;
using frame::Screen;

} // namespace masters
