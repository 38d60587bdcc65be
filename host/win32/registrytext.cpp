// The registry's tree as JSON text: keys and values as objects by name, each value with its type and its bytes in
// hexadecimal digits. Text of any other shape is damaged.

#include <QChar>
#include <QString>
#include <algorithm>
#include <nlohmann/json.hpp>

#include "host/win32/registry.h"

namespace kdhost::registry {
namespace {

using Json = nlohmann::ordered_json;

constexpr int formatVersion = 1;

char32_t folded(wchar_t character) {
    return QChar::toCaseFolded(static_cast<char32_t>(character));
}

std::string utf8(const std::wstring& text) {
    return QString::fromStdWString(text).toStdString();
}

std::wstring wide(const std::string& text) {
    return QString::fromStdString(text).toStdWString();
}

bool hasExactly(const Json& json, std::initializer_list<const char*> members) {
    return json.is_object() && json.size() == members.size() &&
           std::all_of(members.begin(), members.end(), [&](const char* name) { return json.contains(name); });
}

Json valueToJson(const Value& value) {
    const QByteArray bytes(reinterpret_cast<const char*>(value.data.data()), static_cast<int>(value.data.size()));
    return {{"type", value.type}, {"data", bytes.toHex().toStdString()}};
}

bool valueFromJson(const Json& json, Value& value) {
    if (!hasExactly(json, {"type", "data"})) return false;
    const Json& type = json["type"];
    const Json& data = json["data"];
    if (!type.is_number_unsigned() || type.get<std::uint64_t>() > UINT32_MAX || !data.is_string()) return false;
    const QByteArray digits = QByteArray::fromStdString(data.get<std::string>());
    const QByteArray bytes = QByteArray::fromHex(digits);
    // Characters that are no digits would be passed over.
    if (bytes.toHex() != digits) return false;
    value.type = type.get<DWORD>();
    value.data.assign(bytes.begin(), bytes.end());
    return true;
}

Json keyToJson(const Key& key) {
    Json values = Json::object();
    for (const auto& [name, value] : key.values) values[utf8(name)] = valueToJson(value);
    Json keys = Json::object();
    for (const auto& [name, below] : key.keys) keys[utf8(name)] = keyToJson(below);
    return {{"values", std::move(values)}, {"keys", std::move(keys)}};
}

bool keyFromJson(const Json& json, int level, Key& key) {
    if (level > mostLevels || !hasExactly(json, {"values", "keys"})) return false;
    const Json& values = json["values"];
    const Json& keys = json["keys"];
    if (!values.is_object() || !keys.is_object()) return false;
    for (const auto& [name, value] : values.items()) {
        if (!valueFromJson(value, key.values[wide(name)])) return false;
    }
    for (const auto& [name, below] : keys.items()) {
        if (!keyFromJson(below, level + 1, key.keys[wide(name)])) return false;
    }
    return true;
}

}  // namespace

bool NameLess::operator()(const std::wstring& a, const std::wstring& b) const {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](wchar_t x, wchar_t y) { return folded(x) < folded(y); });
}

std::optional<Key> parse(const std::string& text) {
    const Json json = Json::parse(text, nullptr, false);
    if (!hasExactly(json, {"version", "currentUser"}) || json["version"] != formatVersion) return std::nullopt;
    Key root;
    if (!keyFromJson(json["currentUser"], 0, root)) return std::nullopt;
    return root;
}

std::string print(const Key& root) {
    const Json json = {{"version", formatVersion}, {"currentUser", keyToJson(root)}};
    constexpr int indent = 1;
    return json.dump(indent) + "\n";
}

}  // namespace kdhost::registry
