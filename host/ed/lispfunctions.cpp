// The LISP-side functions of a drawing.

#include "host/ed/lispfunctions.h"

#include <algorithm>
#include <cwchar>

#include "host/ed/editor.h"
#include "host/rx/dynamiclinker.h"
#include "kd/ed/lispfunctions.h"
#include "kd/ed/resbuf.h"

namespace kdhost {
namespace {

constexpr int kNoFunction = -1;

int functionAskedFor = kNoFunction;

bool sameName(const std::wstring& a, const std::wstring& b) {
    return wcscasecmp(a.c_str(), b.c_str()) == 0;
}

}  // namespace

bool LispFunctions::define(const std::wstring& name, const void* application, int index) {
    if (name.empty()) return false;
    std::erase_if(m_entries, [&](const Entry& entry) { return sameName(entry.name, name); });
    m_entries.push_back({name, application, index, nullptr});
    return true;
}

bool LispFunctions::undefine(const std::wstring& name, const void* application, int index) {
    return std::erase_if(m_entries, [&](const Entry& entry) {
               return sameName(entry.name, name) && entry.application == application && entry.index == index;
           }) > 0;
}

bool LispFunctions::setFunction(LispFunction function, const void* application, int index) {
    const auto entry = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& e) { return e.application == application && e.index == index; });
    if (entry == m_entries.end()) return false;
    entry->function = function;
    return true;
}

const LispFunctions::Entry* LispFunctions::find(const std::wstring& name) const {
    const auto entry =
        std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& e) { return sameName(e.name, name); });
    return entry == m_entries.end() ? nullptr : &*entry;
}

bool runLispFunction(const std::wstring& name) {
    Editor* editor = currentEditor();
    const LispFunctions::Entry* found = editor == nullptr ? nullptr : editor->lispFunctions().find(name);
    if (found == nullptr) return false;
    // What runs may change the table.
    const LispFunctions::Entry entry = *found;
    if (entry.function != nullptr) {
        entry.function();
    } else {
        functionAskedFor = entry.index;
        sendMessage(const_cast<void*>(entry.application), KdRx::kInvkSubrMsg);
        functionAskedFor = kNoFunction;
    }
    return true;
}

namespace {

int statusOf(bool done) {
    return done ? RTNORM : RTERROR;
}

}  // namespace
}  // namespace kdhost

int kdedDefun(const wchar_t* name, int index) {
    kdhost::Editor* editor = kdhost::currentEditor();
    if (editor == nullptr || name == nullptr) return RTERROR;
    return kdhost::statusOf(editor->lispFunctions().define(name, kdhost::messagedApplication(), index));
}

int kdedUndef(const wchar_t* name, int index) {
    kdhost::Editor* editor = kdhost::currentEditor();
    if (editor == nullptr || name == nullptr) return RTERROR;
    return kdhost::statusOf(editor->lispFunctions().undefine(name, kdhost::messagedApplication(), index));
}

int kdedRegFunc(int (*function)(), int index) {
    kdhost::Editor* editor = kdhost::currentEditor();
    if (editor == nullptr || function == nullptr) return RTERROR;
    return kdhost::statusOf(editor->lispFunctions().setFunction(function, kdhost::messagedApplication(), index));
}

int kdedGetFunCode() {
    return kdhost::functionAskedFor;
}
