#include "exchange/turn_messages.h"

#include "frame/turn_status.h"

#include <algorithm>
#include <array>
#include <utility>

namespace exchange {

namespace {

constexpr std::array<std::pair<QByteArrayView, Message>, 4> commands{{
    {"st", Message::St},
    {"so", Message::So},
    {"en", Message::En},
    {"eo", Message::Eo},
}};

Message command_of(QByteArrayView letters) {
    const auto found = std::ranges::find(commands, letters, &std::pair<QByteArrayView, Message>::first);
    return found == commands.end() ? Message::Garbage : found->second;
}

bool begins_command(char letter) {
    return std::ranges::any_of(commands, [&](const auto& command) { return command.first.front() == letter; });
}

bool may_stand_in_address(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
           QByteArrayView(".:-_%[]").contains(c);
}

} // namespace

std::vector<Message> MessageReader::take(QByteArrayView bytes) {
    std::vector<Message> messages;
    if (m_rest.size() + m_address.size() + bytes.size() > m_bytes_kept)
        return {Message::Garbage};
    m_rest.append(bytes);
    if (m_stage == Stage::Greeting)
        read_greeting(messages);
    if (m_stage == Stage::Address)
        read_address(messages);
    if (m_stage == Stage::Commands)
        read_commands(messages);
    return messages;
}

void MessageReader::read_greeting(std::vector<Message>& messages) {
    const QByteArrayView mark("##");
    if (m_rest == frame::turn_status_question) {
        messages.push_back(Message::Status);
        m_rest.clear();
    } else if (m_rest.size() == 1 && m_rest == frame::turn_status_question.first(1)) {
        return;
    } else if (!mark.startsWith(QByteArrayView(m_rest).first(std::min(m_rest.size(), mark.size())))) {
        messages.push_back(Message::Garbage);
    } else if (m_rest.size() >= mark.size()) {
        m_rest.remove(0, mark.size());
        m_stage = Stage::Address;
        messages.push_back(Message::Greeting);
    }
}

void MessageReader::read_address(std::vector<Message>& messages) {
    m_address.append(std::exchange(m_rest, {}));
    if (!std::ranges::all_of(m_address, may_stand_in_address)) {
        messages.push_back(Message::Garbage);
    } else if (m_address.endsWith(commands.front().first)) {
        m_address.chop(commands.front().first.size());
        m_stage = Stage::Commands;
        messages.push_back(Message::St);
    }
}

void MessageReader::read_commands(std::vector<Message>& messages) {
    while (m_rest.size() >= 2) {
        messages.push_back(command_of(QByteArrayView(m_rest).first(2)));
        if (messages.back() == Message::Garbage)
            return;
        m_rest.remove(0, 2);
    }
    if (!m_rest.isEmpty() && !begins_command(m_rest.front()))
        messages.push_back(Message::Garbage);
}

} // namespace exchange
