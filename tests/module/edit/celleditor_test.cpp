// One cell in the editor: what the text is given, and what comes back of it.

#include "host/ed/display.h"
#include "kd/db/tablestyle.h"
#include "tests/module/edit/celleditfixture.h"

namespace kdtest {
namespace {

class OneCell : public CellEdit {
protected:
    /// One pass, on a table that is open for write.
    int pass(KdDbTable* table, int row, int column, int& key, const wchar_t* typed, bool first,
             const wchar_t* prefill) {
        typist.opened.clear();
        const ResourceScope resources;
        return editTableCell(table, row, column, key, typed, first, prefill);
    }
    /// The user leaves the cell after this change of the text.
    void editAndChange(KdDbObjectId id, std::function<void(KdDbMText&)> change) {
        typist.types({{std::nullopt, kMTextEditorOutside, std::move(change)}});
        EXPECT_TRUE(edit(id, 0, 0));
    }

    KdDbObjectId makeTextStyle(const wchar_t* name) {
        KdDbObjectId id;
        const OpenObject<KdDbTextStyleTable> styles(host.database().textStyleTableId(), KdDb::kForWrite);
        auto* const style = new KdDbTextStyleTableRecord;
        style->setName(name);
        EXPECT_EQ(styles->add(id, style), Kdad::eOk);
        style->close();
        return id;
    }
};

TEST_F(OneCell, outside_the_table_or_without_one_is_an_error_and_the_key_becomes_0) {
    const KdDbObjectId id = add(TableBuilder(2, 3).build());
    const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
    int key = 9;
    EXPECT_EQ(pass(nullptr, 0, 0, key, L"", true, L""), -5001);
    EXPECT_EQ(key, 0);
    for (const auto& [row, column] : {std::pair(-1, 0), {0, -1}, {2, 0}, {0, 3}}) {
        key = 9;
        EXPECT_EQ(pass(table.get(), row, column, key, L"", true, L""), -5001) << row << ", " << column;
        EXPECT_EQ(key, 0);
    }
    EXPECT_TRUE(typist.opened.empty());
}

struct Contents {
    const wchar_t* typed;
    int keyBefore;
    bool first;
    const wchar_t* prefill;
    const wchar_t* contents;
    int mode;
};

/// Typed text counts where no key came before, and moves the caret in the first cell only; a prefill in any.
TEST_F(OneCell, opens_with_typed_text_then_a_prefill_then_its_own_text) {
    const Contents all[] = {
        {L"typed", 0, true, L"ready", L"typed", 2},
        {L"typed", 0, false, L"ready", L"typed", 3},
        {L"typed", 9, false, L"ready", L"ready", 2},
        {L"typed", 9, true, L"", L"own", 1},
        {L"", 0, true, L"ready", L"ready", 2},
        {L"", 40, false, L"ready", L"ready", 2},
        {L"", 0, true, L"", L"own", 1},
        {L"", 9, false, L"", L"own", 3},
    };
    const KdDbObjectId id = add(TableBuilder(1, 1).text("A1", L"own").build());
    const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
    for (const Contents& expected : all) {
        SCOPED_TRACE(&expected - all);
        int key = expected.keyBefore;
        EXPECT_EQ(pass(table.get(), 0, 0, key, expected.typed, expected.first, expected.prefill), RTCAN);
        EXPECT_EQ(key, 27);
        ASSERT_EQ(typist.opened.size(), 1U);
        EXPECT_EQ(typist.opened[0].contents, expected.contents);
        EXPECT_EQ(typist.opened[0].mode, expected.mode);
    }
}

TEST_F(OneCell, hands_out_the_key_and_leaves_the_table_open_for_write) {
    const KdDbObjectId id = add(TableBuilder(1, 1).build());
    const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
    for (const int ending : {9, 13, 25, 29, 37, 38, 39, 40, 0}) {
        typist.types({leave(ending)});
        int key = 0;
        EXPECT_EQ(pass(table.get(), 0, 0, key, L"", false, L""), RTNORM);
        EXPECT_EQ(key, ending);
        EXPECT_TRUE(table->isWriteEnabled());
    }
}

TEST_F(OneCell, stays_as_it_was_when_a_changed_text_is_given_up) {
    const KdDbObjectId id = add(TableBuilder(1, 1).text("A1", L"kept").build());
    const std::string before = describeTable(id);
    typist.look = [](KdDbMText& text) {
        text.setContents(L"given up");
        text.setTextHeight(9.0);
        text.setAttachment(KdDbMText::kBottomRight);
    };
    EXPECT_TRUE(edit(id, 0, 0));
    EXPECT_EQ(describeTable(id), before);
}

TEST_F(OneCell, left_as_it_is_gets_no_looks_of_its_own) {
    const KdDbObjectId id = add(TableBuilder(2, 1).text("A1", L"x").text("A2", L"y").build());
    change(id, [](KdDbTable& table) { table.setRowHeight(30.0); });  // room for the texts
    const std::string before = describeTable(id);
    typist.types({leave(13), leave(0)});
    EXPECT_TRUE(edit(id, 0, 0));
    EXPECT_EQ(describeTable(id), before);
}

TEST_F(OneCell, lends_the_text_the_tables_plane_layer_and_direction) {
    const KdDbObjectId id = add(TableBuilder(1, 1).build(), {3.0, 4.0, 5.0});
    lockLayerOf(id);  // puts it on a layer of its own
    OpenObject<KdDbLayerTableRecord>(look(id).layerId(), KdDb::kForWrite)->setIsLocked(false);
    change(id, [](KdDbTable& table) {
        table.setNormal({0.0, 0.0, -1.0});
        table.setDirection({0.0, 1.0, 0.0});
    });
    bool looked = false;
    typist.look = [&](KdDbMText& text) {
        looked = true;
        EXPECT_EQ(text.layerId(), look(id).layerId());
        EXPECT_NE(text.layerId(), host.database().layerZero());
        EXPECT_TRUE(text.normal().isEqualTo({0.0, 0.0, -1.0}));
        EXPECT_TRUE(text.direction().isEqualTo({0.0, 1.0, 0.0}));
        EXPECT_NEAR(text.rotation(), look(id).rotation(), 1e-9);
        EXPECT_FALSE(text.backgroundFillOn()) << "a cell without a background";
        EXPECT_TRUE(text.objectId().isNull()) << "the text is in no drawing";
    };
    EXPECT_TRUE(edit(id, 0, 0));
    EXPECT_TRUE(looked);
}

TEST_F(OneCell, without_a_text_style_of_its_own_has_the_drawings_current_one) {
    const KdDbObjectId notes = makeTextStyle(L"Notes");
    const KdDbObjectId own = makeTextStyle(L"Own");
    host.database().setTextstyle(notes);
    const KdDbObjectId id = add(TableBuilder(1, 2).build());
    change(id, [&](KdDbTable& table) {
        table.setTextStyle(0, 0, KdDbObjectId::kNull);
        table.setTextStyle(0, 1, own);
    });
    ASSERT_TRUE(look(id).textStyle(0, 0).isNull());
    std::vector<KdDbObjectId> styles;
    typist.look = [&](KdDbMText& text) { styles.push_back(text.textStyle()); };
    typist.types({leave(9), leave(9)});
    EXPECT_TRUE(edit(id, 0, 0));
    EXPECT_EQ(styles, (std::vector<KdDbObjectId>{notes, own}));
    EXPECT_TRUE(look(id).textStyle(0, 0).isNull()) << "a style that nobody changed is not written";
}

/// Keeps what is drawn afresh, and how often something was open for write then.
class Drawn : public kdhost::Display {
public:
    Drawn() { kdhost::setDisplay(this); }
    ~Drawn() override { kdhost::setDisplay(nullptr); }
    void redraw(const std::vector<KdDbObjectId>& ids) override {
        all.insert(all.end(), ids.begin(), ids.end());
        const std::vector<kdhost::OpenObject> open = kdhost::openObjects();
        whileWriting += std::any_of(open.begin(), open.end(), [](const auto& object) { return object.writing; });
    }
    bool holds(KdDbObjectId id) const { return std::find(all.begin(), all.end(), id) != all.end(); }

    std::vector<KdDbObjectId> all;
    int whileWriting = 0;
};

TEST_F(OneCell, has_neither_grips_nor_selected_cells_in_its_way_and_is_drawn_without_them) {
    const KdDbObjectId id = add(TableBuilder(2, 2).build());
    host.editor().pickFirst().selectCells(id, cells("A1:B2"));
    kdhost::updateDisplay();
    const Drawn drawn;
    bool looked = false;
    typist.look = [&](KdDbMText&) {
        looked = true;
        EXPECT_EQ(selection(id), KdCellRange());
        EXPECT_TRUE(host.editor().pickFirst().objects().empty());
        EXPECT_TRUE(drawn.holds(id));
    };
    EXPECT_TRUE(edit(id, 0, 0));
    EXPECT_TRUE(looked);
}

TEST_F(OneCell, has_no_selected_cells_in_its_way_in_a_drawing_behind_another_one) {
    const KdDbObjectId id = add(TableBuilder(2, 2).build());
    select(id, "A1:B2");
    host.documents().openNew();
    bool looked = false;
    typist.look = [&](KdDbMText&) {
        looked = true;
        EXPECT_EQ(selection(id), KdCellRange());
    };
    typist.types({leave(0)});
    EXPECT_TRUE(edit(id, 0, 0));
    EXPECT_TRUE(looked);
}

TEST_F(OneCell, is_drawn_with_its_new_text_when_the_table_is_closed) {
    const KdDbObjectId id = add(TableBuilder(1, 2).build());
    kdhost::updateDisplay();
    Drawn drawn;
    typist.look = [&](KdDbMText&) { drawn.all.clear(); };
    typist.types({{L"a", 9}, {L"b", 0}});
    EXPECT_TRUE(edit(id, 0, 0));
    EXPECT_TRUE(drawn.holds(id));
    EXPECT_EQ(drawn.whileWriting, 0);
}

TEST_F(OneCell, is_to_be_drawn_without_the_editor_also_when_the_text_is_given_up) {
    const KdDbObjectId id = add(TableBuilder(1, 1).build());
    const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
    typist.look = [](KdDbMText&) { kdhost::updateDisplay(); };
    int key = 0;
    EXPECT_EQ(pass(table.get(), 0, 0, key, L"", true, L""), RTCAN);
    EXPECT_EQ(kdhost::queuedForRedraw(), std::vector{id});
}

// What the user changes of the looks.

TEST_F(OneCell, takes_the_colour_with_a_new_text_style_alone) {
    const KdDbObjectId own = makeTextStyle(L"Own");
    const KdDbObjectId id = add(TableBuilder(1, 1).text("A1", L"x").build());
    const KdCmColor before = look(id).contentColor(0, 0);
    const KdDbObjectId styleBefore = look(id).textStyle(0, 0);
    const KdCmColor red = KdCmColor::fromIndex(1);
    ASSERT_NE(before, red);

    editAndChange(id, [&](KdDbMText& text) { text.setColor(red); });
    EXPECT_EQ(look(id).contentColor(0, 0), before);
    editAndChange(id, [&](KdDbMText& text) {
        text.setColor(red);
        text.setTextStyle(KdDbObjectId::kNull);
    });
    EXPECT_EQ(look(id).contentColor(0, 0), before);
    EXPECT_EQ(look(id).textStyle(0, 0), styleBefore) << "no style is no new one";
    editAndChange(id, [&](KdDbMText& text) { text.setTextStyle(own); });
    EXPECT_EQ(look(id).textStyle(0, 0), own);
    EXPECT_EQ(look(id).contentColor(0, 0), before);
    editAndChange(id, [&](KdDbMText& text) {
        text.setColor(red);
        text.setTextStyle(styleBefore.isNull() ? makeTextStyle(L"Other") : styleBefore);
    });
    EXPECT_EQ(look(id).contentColor(0, 0), red);
}

TEST_F(OneCell, keeps_its_text_height_as_its_own_with_a_new_text_style) {
    const KdDbObjectId own = makeTextStyle(L"Own");
    const KdDbObjectId id = add(TableBuilder(3, 2).text("A3", L"x").build());
    typist.types({{std::nullopt, 0, [&](KdDbMText& text) { text.setTextStyle(own); }}});
    EXPECT_TRUE(edit(id, 2, 0));
    const double height = look(id).textHeight(2, 0);
    OpenObject<KdDbTableStyle>(host.database().tablestyle(), KdDb::kForWrite)->setTextHeight(height + 3.0, L"_DATA");
    EXPECT_EQ(look(id).textHeight(2, 0), height);
    EXPECT_EQ(look(id).textHeight(2, 1), height + 3.0) << "the cell beside it follows the style";
}

TEST_F(OneCell, takes_alignment_and_text_height_each_by_itself) {
    const KdDbObjectId id = add(TableBuilder(1, 1).text("A1", L"x").align("A1", KdDb::kTopLeft).build());
    const double height = look(id).textHeight(0, 0);
    editAndChange(id, [](KdDbMText& text) { text.setAttachment(KdDbMText::kMiddleRight); });
    EXPECT_EQ(look(id).alignment(0, 0), KdDb::kMiddleRight);
    EXPECT_EQ(look(id).textHeight(0, 0), height);
    editAndChange(id, [=](KdDbMText& text) { text.setTextHeight(height + 1.0); });
    EXPECT_EQ(look(id).alignment(0, 0), KdDb::kMiddleRight);
    EXPECT_EQ(look(id).textHeight(0, 0), height + 1.0);
}

}  // namespace
}  // namespace kdtest
