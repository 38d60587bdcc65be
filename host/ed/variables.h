// Host variables: settings and states that commands, modules and people read and set by name.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "kd/ed/resbuf.h"

namespace kdhost {

/// RTSHORT and RTLONG are integers, RTREAL a number, RTSTR a text.
using VariableValue = std::variant<std::int32_t, double, std::wstring>;

/// Where a variable's value lives.
enum class VariableHome {
    Session,  ///< with the program, until it ends
    Drawing,  ///< in the active drawing; without one the variable can't be read
    State,    ///< worked out from what the program does
};

struct VariableRecord {
    const wchar_t* name;  ///< in capitals
    KdResultType type;
    VariableHome home;
    bool readOnly;
    double lowest;
    double highest;
    VariableValue standard;  ///< what a session starts with
    /// Of variables that don't live in the session: none when there is nothing to read.
    std::optional<VariableValue> (*get)();
    /// False refuses the value.
    bool (*set)(const VariableValue& value);
};

/// All variables, by name.
const std::vector<VariableRecord>& variableRecords();
/// Null for an unknown name. Names are taken without regard to case.
const VariableRecord* findVariable(const std::wstring& name);

std::optional<VariableValue> readVariable(const VariableRecord& variable);
/// False for a read-only variable, a value of another type, outside its range or refused.
bool writeVariable(const VariableRecord& variable, const VariableValue& value);
/// Puts the variables of the session back to what a session starts with.
void resetVariables();

/// The value as people read it, and a text read as a value of the variable; none when it isn't one.
std::wstring variableText(const VariableValue& value);
std::optional<VariableValue> parseVariable(const VariableRecord& variable, const std::wstring& text);

}  // namespace kdhost
