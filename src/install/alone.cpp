#include "install/alone.h"

#include "store/files.h"

#include <stdexcept>

namespace install {

Alone::Alone(const base::Settings& settings)
    : m_program(store::data_folder(settings), store::desktop_program.toString()),
      m_manager(store::exchange_folder(settings), store::manager_program.toString()) {
    if (!m_program.take(std::chrono::milliseconds(0)))
        throw std::runtime_error("the program is open on this data, here or on another PC: end it first");
    if (!m_manager.take(std::chrono::seconds(5)))
        throw std::runtime_error("jyusinkanri is at work on this data: wait until it has ended");
}

} // namespace install
