// The order of what prompts read.

#include "host/ed/inputqueue.h"

#include <string_view>
#include <utility>

namespace kdhost {
namespace {

constexpr std::wstring_view kCancel = L"^C";

bool cancelStandsAt(const std::wstring& text, std::size_t at) {
    return text.compare(at, kCancel.size(), kCancel) == 0;
}

InputItem character(wchar_t value) {
    return {InputItem::Kind::Character, value, {}, {}};
}

const InputItem kCancelItem{InputItem::Kind::Cancel, 0, {}, {}};

}  // namespace

void InputQueue::send(const std::wstring& text) {
    for (std::size_t at = 0; at < text.size();) {
        const bool cancel = cancelStandsAt(text, at);
        m_sent.push_back(cancel ? kCancelItem : character(text[at]));
        at += cancel ? kCancel.size() : 1;
    }
    tell();
}

void InputQueue::type(const std::wstring& text) {
    std::size_t at = 0;
    for (; cancelStandsAt(text, at); at += kCancel.size()) m_typed.push_back(kCancelItem);
    for (; at < text.size(); ++at) m_typed.push_back(character(text[at]));
    tell();
}

void InputQueue::put(InputItem::Kind kind, const KdGePoint3d& point) {
    m_typed.push_back({kind, 0, point, {}});
    tell();
}

void InputQueue::put(const CellsOfTable& cells) {
    m_typed.push_back({InputItem::Kind::Cells, 0, {}, cells});
    tell();
}

std::function<void()> InputQueue::setListener(std::function<void()> listener) {
    return std::exchange(m_listener, std::move(listener));
}

void InputQueue::tell() const {
    if (m_listener) m_listener();
}

void InputQueue::clear() {
    m_sent.clear();
    m_typed.clear();
}

std::optional<InputItem> InputQueue::next(InputSource* source) {
    while (isEmpty()) {
        if (source == nullptr || !source->feed(*this)) return std::nullopt;
    }
    std::deque<InputItem>& queue = m_sent.empty() ? m_typed : m_sent;
    const InputItem item = queue.front();
    queue.pop_front();
    return item;
}

}  // namespace kdhost
