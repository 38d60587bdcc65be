// Formats in the dump.

#include "host/app/dump/format.h"

#include "host/rx/encoding.h"

namespace kdhost::dump {

Json value(const std::wstring& text) {
    return toUtf8(text);
}

Json edge(const GridLook& look) {
    Json parts = Json::object();
    std::apply([&](const auto&... part) { ((parts[part.name] = value(look.*(part.part))), ...); },
               kdhost::property::kGrid);
    if (look.linetype.isNull()) parts[kdhost::property::linetype.name] = "ByBlock";
    return parts;
}

}  // namespace kdhost::dump
