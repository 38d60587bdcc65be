// Drawings of any content, saved and opened: what they are is what they were.

#include <gtest/gtest.h>

#include <regex>
#include <sstream>

#include "host/app/dump/dump.h"
#include "host/db/access.h"
#include "kd/db/table.h"
#include "tests/host/file/filefixture.h"
#include "tests/support/application.h"
#include "tests/support/randomdrawing.h"

namespace {

/// The dump of the current drawing, without the steps of undo, and with handles in the place of the ids that formulas
/// name tables by: ids are numbers of the run.
std::string comparableDump(kdhost::Document& document) {
    std::ostringstream out;
    kdhost::writeDump(out, document);
    const std::string dump = std::regex_replace(out.str(), std::regex("\"undoSteps\":.*"), "");
    std::string result;
    const std::regex table("Table\\(([0-9]+)\\)");
    std::sregex_iterator each(dump.begin(), dump.end(), table);
    std::size_t done = 0;
    for (; each != std::sregex_iterator(); ++each) {
        const auto at = static_cast<std::size_t>(each->position(1));
        const KdDbObject* named = kdhost::peekObject(KdDbObjectId(std::stoull((*each)[1])));
        result += dump.substr(done, at - done) + (named == nullptr ? "0" : "#" + std::to_string(named->handle()));
        done = at + static_cast<std::size_t>(each->length(1));
    }
    return result + dump.substr(done);
}

class RoundTrips : public kdtest::DrawingFiles {
protected:
    void expectSame(KdDbDatabase& database) {
        const std::string first = kdhost::file::drawingBytes(database);
        const std::string before = comparableDump(host.document());
        ASSERT_EQ(host.document().saveAs(widePath("saved.dxf")), Kdad::eOk);
        const std::wstring copy = widePath("copy.dxf");
        ASSERT_EQ(host.document().saveAs(copy), Kdad::eOk);
        ASSERT_EQ(host.documents().openFile(widePath("saved.dxf")), Kdad::eOk) << kdhost::file::lastRefusal();
        const std::string after = comparableDump(host.document());
        ASSERT_TRUE(before == after) << firstDifference(before, after);
        const std::string second = kdhost::file::drawingBytes(host.database());
        ASSERT_TRUE(first == second) << firstDifference(first, second);
        host.documents().close(host.document());
    }

    kdtest::HostApplication host;
};

TEST_F(RoundTrips, every_example_comes_back_as_it_was) {
    for (const std::string& name : kdtest::exampleDrawings()) {
        SCOPED_TRACE(name);
        ASSERT_EQ(host.documents().openFile(kdhost::fromUtf8(name)), Kdad::eOk) << kdhost::file::lastRefusal();
        EXPECT_TRUE(kdhost::file::drawingBytes(host.database()) == kdtest::contentOf(name))
            << "saved again, the file is another one";
        expectSame(host.database());
        host.documents().close(host.document());
        if (HasFatalFailure()) return;
    }
}

TEST_F(RoundTrips, random_drawings_come_back_as_they_were) {
    for (unsigned seed = 0; seed < 1000; ++seed) {
        SCOPED_TRACE(seed);
        host.documents().openNew();
        kdtest::fillRandomly(host.database(), seed);
        expectSame(host.database());
        host.documents().close(host.document());
        if (HasFatalFailure()) return;
    }
}

}  // namespace
