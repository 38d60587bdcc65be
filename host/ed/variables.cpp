// Reading and writing of host variables.

#include "host/ed/variables.h"

#include <algorithm>
#include <charconv>
#include <cwchar>
#include <map>

#include "host/db/travellingcells.h"
#include "host/rx/faults.h"
#include "host/rx/numbertext.h"
#include "kd/ed/variables.h"

namespace kdhost {
namespace {

std::map<std::wstring, VariableValue>& sessionValues() {
    static std::map<std::wstring, VariableValue> values;
    return values;
}

/// Which kind of value a type holds, as the place in the variant.
std::size_t kindOf(KdResultType type) {
    if (type == RTSTR) return 2;
    return type == RTREAL ? 1 : 0;
}

bool isInRange(const VariableRecord& variable, const VariableValue& value) {
    if (std::holds_alternative<std::wstring>(value)) return true;
    const double number =
        std::holds_alternative<double>(value) ? std::get<double>(value) : std::get<std::int32_t>(value);
    return number >= variable.lowest && number <= variable.highest;
}

/// None for a buffer of another type.
std::optional<VariableValue> valueOf(const resbuf& buffer, KdResultType wanted) {
    if (buffer.restype != wanted) return std::nullopt;
    switch (wanted) {
        case RTSHORT:
            return std::int32_t(buffer.resval.rint);
        case RTLONG:
            return buffer.resval.rlong;
        case RTREAL:
            return buffer.resval.rreal;
        case RTSTR:
            if (buffer.resval.rstring == nullptr) return std::nullopt;
            return std::wstring(buffer.resval.rstring);
        default:
            return std::nullopt;
    }
}

void fillBuffer(resbuf& buffer, KdResultType type, const VariableValue& value) {
    buffer.restype = type;
    if (type == RTSTR) {
        buffer.resval.rstring = kdutNewString(std::get<std::wstring>(value).c_str());
    } else if (type == RTREAL) {
        buffer.resval.rreal = std::get<double>(value);
    } else if (type == RTLONG) {
        buffer.resval.rlong = std::get<std::int32_t>(value);
    } else {
        buffer.resval.rint = static_cast<short>(std::get<std::int32_t>(value));
    }
}

}  // namespace

const VariableRecord* findVariable(const std::wstring& name) {
    const std::vector<VariableRecord>& all = variableRecords();
    const auto found = std::find_if(all.begin(), all.end(), [&](const VariableRecord& variable) {
        return wcscasecmp(variable.name, name.c_str()) == 0;
    });
    return found == all.end() ? nullptr : &*found;
}

std::optional<VariableValue> readVariable(const VariableRecord& variable) {
    if (variable.home != VariableHome::Session) return variable.get();
    const auto value = sessionValues().find(variable.name);
    return value == sessionValues().end() ? variable.standard : value->second;
}

bool writeVariable(const VariableRecord& variable, const VariableValue& value) {
    if (variable.readOnly || value.index() != kindOf(variable.type) || !isInRange(variable, value)) return false;
    if (variable.home != VariableHome::Session) return variable.set(value);
    sessionValues()[variable.name] = value;
    return true;
}

void resetVariables() {
    sessionValues().clear();
    setCellsTravelling(false);
}

std::wstring variableText(const VariableValue& value) {
    if (const auto* text = std::get_if<std::wstring>(&value)) return *text;
    char digits[64];
    const auto print = [&](auto number) { return std::to_chars(digits, digits + sizeof digits, number).ptr; };
    const char* const end =
        std::holds_alternative<double>(value) ? print(std::get<double>(value)) : print(std::get<std::int32_t>(value));
    return std::wstring(static_cast<const char*>(digits), end);
}

std::optional<VariableValue> parseVariable(const VariableRecord& variable, const std::wstring& text) {
    if (variable.type == RTSTR) return text;
    if (variable.type == RTREAL) return numberFrom(text);
    return wholeNumberFrom(text);
}

}  // namespace kdhost

int kdedGetVar(const wchar_t* name, resbuf* result) {
    using namespace kdhost;
    const VariableRecord* variable = name == nullptr ? nullptr : findVariable(name);
    if (variable == nullptr || result == nullptr || faults().unreadableVariables.contains(variable->name)) {
        return RTERROR;
    }
    const std::optional<VariableValue> value = readVariable(*variable);
    if (!value) return RTERROR;
    fillBuffer(*result, variable->type, *value);
    return RTNORM;
}

int kdedSetVar(const wchar_t* name, const resbuf* buffer) {
    using namespace kdhost;
    const VariableRecord* variable = name == nullptr ? nullptr : findVariable(name);
    if (variable == nullptr || buffer == nullptr) return RTERROR;
    const std::optional<VariableValue> value = valueOf(*buffer, variable->type);
    return value && writeVariable(*variable, *value) ? RTNORM : RTERROR;
}
