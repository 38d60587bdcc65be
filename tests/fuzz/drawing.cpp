// Drawing files: a sound one in which the input stands in the place of some bytes. It is refused as a whole, or is a
// drawing that can be saved, opened and saved again as the same bytes.

#include <algorithm>

#include "host/db/databasecontents.h"
#include "host/file/drawingfile.h"
#include "host/rx/encoding.h"
#include "tests/fuzz/target.h"
#include "tests/support/randomdrawing.h"

namespace {

const std::string& soundBytes() {
    static const std::string bytes = [] {
        constexpr unsigned kDrawingWithTables = 11;
        KdDbDatabase database;
        kdtest::fillRandomly(database, kDrawingWithTables);
        return kdhost::file::drawingBytes(database);
    }();
    return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::string& sound = soundBytes();
    // Where it stands and how much it takes the place of follow from the input.
    const std::size_t seed = std::hash<std::string>{}(input);
    std::string bytes = sound;
    // As often at the end of a line as anywhere.
    std::size_t at = seed % bytes.size();
    if ((seed >> 40 & 1) != 0) at = bytes.find('\n', at);
    bytes.replace(at, std::min(seed >> 32 & 31, bytes.size() - at), input);

    const std::wstring told = kdhost::fromUtf8(input);
    KdDbDatabase database(false, true);
    if (kdhost::file::readDrawing(database, bytes) != Kdad::eOk) {
        kdtest::require(KdDbDatabaseAccess::contents(database).objects.empty(), "a refused file left something", told);
        return 0;
    }
    const std::string saved = kdhost::file::drawingBytes(database);
    KdDbDatabase again(false, true);
    kdtest::require(kdhost::file::readDrawing(again, saved) == Kdad::eOk, "what was saved is refused", told);
    const std::string second = kdhost::file::drawingBytes(again);
    KdDbDatabase last(false, true);
    kdtest::require(kdhost::file::readDrawing(last, second) == Kdad::eOk, "what was saved twice is refused", told);
    kdtest::require(kdhost::file::drawingBytes(last) == second, "other bytes when saved again", told);
    return 0;
}
