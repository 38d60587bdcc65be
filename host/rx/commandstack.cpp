// The command stack: registering, removing, and the look-up of a typed word.

#include "host/rx/commandstack.h"

#include <cwchar>
#include <memory>
#include <set>

KDRX_DEFINE_MEMBERS(KdEdCommandStack, KdRxObject)

namespace kdhost {
namespace {

bool sameWord(const std::wstring& a, const std::wstring& b) {
    return ::wcscasecmp(a.c_str(), b.c_str()) == 0;
}

bool beginsWith(const std::wstring& text, const std::wstring& beginning) {
    return ::wcsncasecmp(text.c_str(), beginning.c_str(), beginning.size()) == 0;
}

bool isText(const wchar_t* text) {
    return text != nullptr && *text != L'\0';
}

class CommandStack final : public KdEdCommandStack {
public:
    Kdad::ErrorStatus addCommand(const wchar_t* group, const wchar_t* globalName, const wchar_t* localName, int flags,
                                 KdEdCommandFunction function, void* uiContext, int fcode, HINSTANCE resource,
                                 void** command) override {
        if (!isText(group) || !isText(globalName) || function == nullptr) return Kdad::eInvalidInput;
        for (const auto& record : m_records) {
            if (sameWord(record->group, group) && sameWord(record->globalName, globalName)) return Kdad::eDuplicateKey;
        }
        m_records.push_back(std::make_unique<CommandRecord>(CommandRecord{
            group, globalName, isText(localName) ? localName : L"", flags, function, uiContext, fcode, resource}));
        if (command != nullptr) *command = m_records.back().get();
        return Kdad::eOk;
    }

    Kdad::ErrorStatus removeCmd(const wchar_t* group, const wchar_t* globalName) override {
        if (!isText(group) || !isText(globalName)) return Kdad::eKeyNotFound;
        return removeWhere([&](const CommandRecord& record) {
            return sameWord(record.group, group) && sameWord(record.globalName, globalName);
        });
    }

    Kdad::ErrorStatus removeGroup(const wchar_t* group) override {
        if (!isText(group)) return Kdad::eKeyNotFound;
        return removeWhere([&](const CommandRecord& record) { return sameWord(record.group, group); });
    }

    const CommandRecord* find(const std::wstring& name, std::wstring CommandRecord::*field) const {
        if (name.empty()) return nullptr;
        for (const auto& record : m_records) {
            if (sameWord((*record).*field, name)) return record.get();
        }
        return nullptr;
    }

    const std::vector<std::unique_ptr<CommandRecord>>& records() const { return m_records; }

private:
    template <class Test>
    Kdad::ErrorStatus removeWhere(Test test) {
        const std::size_t removed = std::erase_if(m_records, [&](const auto& record) { return test(*record); });
        return removed == 0 ? Kdad::eKeyNotFound : Kdad::eOk;
    }

    std::vector<std::unique_ptr<CommandRecord>> m_records;
};

CommandStack& stack() {
    static auto* const instance = new CommandStack;
    return *instance;
}

}  // namespace

KdEdCommandStack& commandStack() {
    return stack();
}

std::optional<CommandRecord> findCommand(const std::wstring& word) {
    const bool globalOnly = !word.empty() && word.front() == L'_';
    const CommandRecord* record = globalOnly ? nullptr : stack().find(word, &CommandRecord::localName);
    if (record == nullptr) record = stack().find(globalOnly ? word.substr(1) : word, &CommandRecord::globalName);
    if (record == nullptr) return std::nullopt;
    return *record;
}

std::vector<CommandRecord> registeredCommands() {
    std::vector<CommandRecord> list;
    for (const auto& record : stack().records()) list.push_back(*record);
    return list;
}

std::vector<std::wstring> commandCompletions(const std::wstring& typed) {
    const bool global = !typed.empty() && typed.front() == L'_';
    std::set<std::wstring> names;
    for (const auto& record : stack().records()) {
        const bool local = !global && !record->localName.empty();
        const std::wstring name = local ? record->localName : (global ? L"_" : L"") + record->globalName;
        if (beginsWith(name, typed)) names.insert(name);
    }
    return {names.begin(), names.end()};
}

}  // namespace kdhost
