// Random opens, upgrades, downgrades, closes, changes and erasures, beside a model that keeps a list of who
// has the object open.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "host/db/access.h"
#include "tests/support/leakguard.h"
#include "tests/support/objects.h"

namespace {

using Kdad::ErrorStatus;

/// The rules in their plainest form.
struct PlainRules {
    std::vector<KdDb::OpenMode> opens;  ///< in no order that matters
    bool erased = false;
    bool changed = false;
    int told = 0;

    int count(KdDb::OpenMode mode) const { return static_cast<int>(std::count(opens.begin(), opens.end(), mode)); }
    bool writing() const { return count(KdDb::kForWrite) > 0; }

    ErrorStatus open(KdDb::OpenMode mode, bool openErased) {
        if (erased && !openErased) return Kdad::eWasErased;
        if (writing()) return Kdad::eWasOpenForWrite;
        if (mode == KdDb::kForWrite && !opens.empty()) return Kdad::eWasOpenForRead;
        opens.push_back(mode);
        return Kdad::eOk;
    }
    ErrorStatus upgrade() {
        if (opens.empty()) return Kdad::eNotOpenForRead;
        if (opens.size() > 1) return Kdad::eWasOpenForRead;
        opens[0] = KdDb::kForWrite;
        return Kdad::eOk;
    }
    ErrorStatus downgrade() {
        if (opens.empty()) return Kdad::eNotOpenForRead;
        if (writing()) opens[0] = KdDb::kForRead;
        return Kdad::eOk;
    }
    ErrorStatus close() {
        opens.pop_back();
        if (opens.empty() && std::exchange(changed, false)) ++told;
        return Kdad::eOk;
    }
    ErrorStatus change() {
        changed = true;
        return Kdad::eOk;
    }
};

struct Counter : KdDbObjectReactor {
    void modified(const KdDbObject*) override { ++told; }
    int told = 0;
};

TEST(DisciplineModel, random_sequences_agree_with_the_plain_model) {
    KdDbDatabase database;
    const KdDbObjectId id = kdtest::appendLine(database);
    Counter counter;
    kdhost::peekObject(id)->addReactor(&counter);
    PlainRules model;
    std::mt19937 random(static_cast<unsigned>(::testing::UnitTest::GetInstance()->random_seed()));
    KdDbLine* line = nullptr;

    for (int step = 0; step < 100'000; ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        const auto choice = random() % 11;
        if (choice < 3) {
            const KdDb::OpenMode mode = choice == 0 ? KdDb::kForWrite : KdDb::kForRead;
            const bool openErased = random() % 2 == 0;
            KdDbObject* object = nullptr;
            ASSERT_EQ(kddbOpenObject(object, id, mode, openErased), model.open(mode, openErased));
            if (object != nullptr) line = static_cast<KdDbLine*>(object);
        } else if (line == nullptr) {
            continue;
        } else if (choice == 3) {
            ASSERT_EQ(line->upgradeOpen(), model.upgrade());
        } else if (choice == 4) {
            ASSERT_EQ(line->downgradeOpen(), model.downgrade());
        } else if (choice < 9) {
            if (!model.opens.empty()) {
                ASSERT_EQ(line->close(), model.close());
            }
        } else if (model.writing()) {
            ASSERT_EQ(line->setEndPoint({static_cast<double>(step), 0.0, 0.0}), model.change());
            if (random() % 4 == 0) {
                model.erased = !model.erased;
                ASSERT_EQ(line->erase(model.erased), Kdad::eOk);
            }
        }
        ASSERT_EQ(counter.told, model.told);
        ASSERT_EQ(kdhost::peekObject(id) == nullptr, model.erased);
        const std::vector<kdhost::OpenObject> open = kdhost::openObjects();
        ASSERT_EQ(open.empty(), model.opens.empty());
        if (open.empty()) continue;
        ASSERT_EQ(open[0].readers, model.count(KdDb::kForRead));
        ASSERT_EQ(open[0].writing, model.writing());
    }
    while (!model.opens.empty()) {
        line->close();
        model.close();
    }
    EXPECT_GT(counter.told, 1000);
    kdhost::peekObject(id, true)->removeReactor(&counter);
}

}  // namespace
