// Drawables: what is one, and the defaults of those that stand for others.

#include "kd/db/drawable.h"

#include <gtest/gtest.h>

#include "kd/db/dictionary.h"
#include "kd/db/line.h"
#include "kd/rx/class.h"
#include "kd/rx/dictionary.h"
#include "kd/rx/registry.h"

namespace {

TEST(Drawables, are_the_objects_of_a_drawing_and_those_that_stand_for_them) {
    const KdDbLine line;
    const KdDbDictionary dictionary;
    const KdGsDrawable stand;
    EXPECT_TRUE(line.isKindOf(KdGiDrawable::desc()));
    EXPECT_TRUE(dictionary.isKindOf(KdGiDrawable::desc()));
    EXPECT_TRUE(stand.isKindOf(KdGiDrawable::desc()));
    EXPECT_FALSE(line.isKindOf(KdGsDrawable::desc()));
    EXPECT_EQ(KdGsDrawable::desc()->myParent(), KdGiDrawable::desc());
    EXPECT_EQ(KdGiDrawable::desc()->myParent(), KdRxObject::desc());
}

TEST(Drawables, one_that_stands_for_another_stands_for_none_and_is_out_of_date_by_default) {
    const KdGsDrawable stand;
    EXPECT_EQ(stand.drawable(), nullptr);
    EXPECT_TRUE(stand.isRegenNeeded());
}

TEST(Drawables, their_classes_are_found_by_name) {
    KdGsDrawable::desc();
    kdrxBuildClassHierarchy();
    auto* classes = KdRxObject::cast<KdRxDictionary>(kdrxSysRegistry()->at(L"ClassDictionary"));
    ASSERT_NE(classes, nullptr);
    EXPECT_EQ(classes->at(L"KdGiDrawable"), KdGiDrawable::desc());
    EXPECT_EQ(classes->at(L"KdGsDrawable"), KdGsDrawable::desc());
}

}  // namespace
