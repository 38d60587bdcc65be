// What tests of samples share: a running application with the module's texts loaded, as a dialog has them, and line
// types of its own drawing.
#pragma once

#include <memory>
#include <optional>

#include "host/db/keptobject.h"
#include "host/db/objectstate.h"
#include "module/preview/tablecellfromtablestyle.h"
#include "tests/module/core/editfixture.h"
#include "tests/module/preview/celllook.h"
#include "tests/module/preview/samplepicture.h"

namespace kdtest::preview {

inline constexpr double kPi = 3.14159265358979323846;

class PreviewTest : public TableEdits {
protected:
    void SetUp() override {
        TableEdits::SetUp();
        m_texts.emplace();
    }
    void TearDown() override {
        m_texts.reset();
        TableEdits::TearDown();
    }

    /// A line type of the drawing, made at its first use.
    KdDbObjectId linetype(const std::wstring& name) {
        KdDbLinetypeTable* table = nullptr;
        EXPECT_EQ(host.database().getLinetypeTable(table, KdDb::kForWrite), Kdad::eOk);
        KdDbObjectId id;
        if (table->getAt(name.c_str(), id) != Kdad::eOk) {
            auto* record = new KdDbLinetypeTableRecord;
            record->setName(name.c_str());
            record->setDashes({0.5, -0.25});
            EXPECT_EQ(table->add(id, record), Kdad::eOk);
            record->close();
        }
        table->close();
        return id;
    }

    /// A text style of the drawing whose characters are that many times as wide as others.
    KdDbObjectId wideTextStyle(double factor) {
        KdDbTextStyleTable* table = nullptr;
        EXPECT_EQ(host.database().getTextStyleTable(table, KdDb::kForWrite), Kdad::eOk);
        auto* record = new KdDbTextStyleTableRecord;
        record->setName(L"Wide");
        record->setXScale(factor);
        KdDbObjectId id;
        EXPECT_EQ(table->add(id, record), Kdad::eOk);
        record->close();
        table->close();
        return id;
    }

    /// Every edge with a line type of its own, the text with the drawing's text style.
    CellLook fullLook() {
        CellLook look;
        look.textStyle = host.database().textstyle();
        for (std::size_t edge = 0; edge < look.edges.size(); ++edge) {
            look.edges.at(edge).linetype = linetype(L"EDGE" + std::to_wstring(edge));
        }
        return look;
    }

private:
    std::optional<ResourceScope> m_texts;
};

/// The end of a sample: its drawing goes while the reference into it is still there. `construct` gives a pointer to
/// what holds a new sample.
template <class Construct>
void expectDrawingGoesBeforeItsReference(Construct construct) {
    struct Leaving : KdDbObjectReactor {
        void goodbye(const KdDbObject*) override { referenceStood = !heldByReference.expired(); }
        std::weak_ptr<const kdhost::ForeignTags> heldByReference;
        std::optional<bool> referenceStood;
    } leaving;
    auto made = construct();
    ASSERT_TRUE(made->sample.CreateTableCell());
    KdDbBlockReference& reference = *made->sample.GetTableCell();
    auto held = std::make_shared<const kdhost::ForeignTags>();
    leaving.heldByReference = held;
    KdDbObjectAccess::stateForMaker(reference).foreign = std::move(held);
    kdhost::peekObject(reference.blockTableRecord())->addReactor(&leaving);
    made.reset();
    EXPECT_EQ(leaving.referenceStood, true);
}

/// A sample of a look, made with its style, which lives as long as it.
struct StyleSample {
    explicit StyleSample(const CellLook& look, bool singleColumn = false)
        : style(styleOf(look)), sample(style.get(), KdString(look.name), singleColumn) {}

    StyleSample& make() {
        EXPECT_TRUE(sample.CreateTableCell());
        return *this;
    }
    Picture picture() const { return pictureOf(sample); }

    std::unique_ptr<KdDbTableStyle> style;
    CVqTableCellFromTableStyle sample;
};

}  // namespace kdtest::preview
