// LISP-side functions of one drawing: names that modules offer, with the module and number behind each.
#pragma once

#include <string>
#include <vector>

namespace kdhost {

using LispFunction = int (*)();

class LispFunctions {
public:
    /// False for an empty name. A name offered again is the newcomer's.
    bool define(const std::wstring& name, const void* application, int index);
    /// False when that application offers no such function.
    bool undefine(const std::wstring& name, const void* application, int index);
    /// Lets a defined function be called directly. False when it isn't defined.
    bool setFunction(LispFunction function, const void* application, int index);

    struct Entry {
        std::wstring name;
        const void* application = nullptr;
        int index = 0;
        LispFunction function = nullptr;
    };
    /// Null for an unknown name. Names are taken without regard to case.
    const Entry* find(const std::wstring& name) const;
    bool isEmpty() const { return m_entries.empty(); }

private:
    std::vector<Entry> m_entries;
};

/// Runs a function of the active document by its name: directly where it may be called so, else by message.
/// False for an unknown name.
bool runLispFunction(const std::wstring& name);

}  // namespace kdhost
