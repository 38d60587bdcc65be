// Fields: codes, children, evaluated text, places in the database.

#include "kd/db/field.h"

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "host/db/fieldstate.h"
#include "kd/db/mtext.h"
#include "kd/ed/resbuf.h"
#include "tests/support/leakguard.h"
#include "tests/support/objects.h"

namespace {

using kdtest::mustOpen;
using Children = KdArray<KdDbField*>;

std::wstring code(const KdDbField& field, KdDbField::FieldCodeFlag flag) {
    return field.getFieldCode(flag).str();
}

Children one(KdDbField* child) {
    Children children;
    children.append(child);
    return children;
}

class Fields : public ::testing::Test {
protected:
    /// A posted field whose text is one formula, built as cells build theirs. Both are open for write.
    void build(const wchar_t* formula) {
        outer = new KdDbField;
        ASSERT_EQ(outer->postInDatabase(&m_database), Kdad::eOk);
        inner = new KdDbField;
        EXPECT_EQ(inner->setFieldCode(formula), Kdad::eOk);
        Children children = one(inner);
        EXPECT_EQ(outer->setFieldCode(L"%<\\_FldIdx 0>%", KdDbField::kTextField, &children), Kdad::eOk);
    }
    void closeBoth() const {
        inner->close();
        outer->close();
    }

    KdDbDatabase m_database;
    KdDbField* outer = nullptr;
    KdDbField* inner = nullptr;
};

TEST_F(Fields, a_text_field_reads_through_its_child) {
    build(L"\\AcExpr (1+2)");
    EXPECT_EQ(code(*outer, KdDbField::kFieldCode), L"%<\\_FldIdx 0>%");
    EXPECT_EQ(code(*outer, KdDbField::kAddChildren), L"\\AcExpr (1+2)");
    EXPECT_EQ(code(*inner, KdDbField::kFieldCode), L"\\AcExpr (1+2)");
    EXPECT_EQ(outer->childCount(), 1);
    EXPECT_EQ(inner->childCount(), 0);
    closeBoth();
}

TEST_F(Fields, a_formula_shows_what_it_comes_to) {
    build(L"\\AcExpr (1+2)");
    EXPECT_EQ(code(*inner, KdDbField::kEvaluatedText), L"3");
    EXPECT_EQ(code(*outer, KdDbField::kEvaluatedText), L"3");
    EXPECT_EQ(kdhost::evaluatedText(*outer), L"3");
    inner->setFieldCode(L"\\AcExpr (1+3)");
    EXPECT_EQ(code(*outer, KdDbField::kEvaluatedText), L"4");
    closeBoth();
}

TEST_F(Fields, another_evaluators_field_shows_its_last_text_until_the_code_changes) {
    build(L"\\AcVar Date");
    EXPECT_EQ(code(*outer, KdDbField::kEvaluatedText), L"####") << "never evaluated";
    EXPECT_EQ(kdhost::setEvaluatedText(*inner, L"today"), Kdad::eOk);
    EXPECT_EQ(code(*outer, KdDbField::kEvaluatedText), L"today");
    inner->setFieldCode(L"\\AcVar Time");
    EXPECT_EQ(code(*outer, KdDbField::kEvaluatedText), L"####");
    closeBoth();
}

TEST_F(Fields, a_code_without_an_evaluator_shows_itself) {
    KdDbField field;
    EXPECT_EQ(code(field, KdDbField::kEvaluatedText), L"");
    field.setFieldCode(L"plain text");
    EXPECT_EQ(code(field, KdDbField::kEvaluatedText), L"plain text");
}

TEST_F(Fields, marks_stand_among_text_and_marks_of_no_child_stay) {
    KdDbField field;
    auto* first = new KdDbField;
    auto* second = new KdDbField;
    first->setFieldCode(L"one");
    second->setFieldCode(L"two");
    Children children = one(first);
    children.append(second);
    field.setFieldCode(L"a %<\\_FldIdx 1>% b %<\\_FldIdx 0>% c %<\\_FldIdx 2>% d %<\\_FldIdx x>% e %<\\_FldIdx 0",
                       KdDbField::kTextField, &children);
    EXPECT_EQ(code(field, KdDbField::kAddChildren), L"a two b one c %<\\_FldIdx 2>% d %<\\_FldIdx x>% e %<\\_FldIdx 0");
}

TEST_F(Fields, a_child_in_memory_belongs_to_its_field_and_is_posted_with_it) {
    auto* field = new KdDbField;
    auto* child = new KdDbField;
    child->setFieldCode(L"\\AcExpr (7)");
    Children children = one(child);
    field->setFieldCode(L"%<\\_FldIdx 0>%", KdDbField::kTextField, &children);
    KdDbField* held = nullptr;
    EXPECT_EQ(field->getChild(0, held, KdDb::kForRead), Kdad::eOk);
    EXPECT_EQ(held, child);
    ASSERT_EQ(field->postInDatabase(&m_database), Kdad::eOk);
    EXPECT_EQ(child->database(), &m_database);
    EXPECT_EQ(child->ownerId(), field->objectId());
    EXPECT_FALSE(child->isReadEnabled()) << "a child posted along is not open";
    EXPECT_EQ(field->postInDatabase(&m_database), Kdad::eAlreadyInDatabase);
    field->close();
}

TEST_F(Fields, a_child_given_to_a_posted_field_is_posted_at_once_and_stays_open) {
    build(L"\\AcExpr (1)");
    EXPECT_TRUE(inner->isWriteEnabled());
    EXPECT_EQ(inner->ownerId(), outer->objectId());
    KdDbField* child = nullptr;
    EXPECT_EQ(outer->getChild(0, child, KdDb::kForRead), Kdad::eWasOpenForWrite);
    EXPECT_EQ(child, nullptr);
    closeBoth();
}

TEST_F(Fields, a_child_that_another_field_holds_is_copied) {
    auto first = std::make_unique<KdDbField>();
    KdDbField second;
    auto* child = new KdDbField;
    child->setFieldCode(L"shared");
    Children children = one(child);
    first->setFieldCode(L"%<\\_FldIdx 0>%", KdDbField::kTextField, &children);
    second.setFieldCode(L"%<\\_FldIdx 0>%", KdDbField::kTextField, &children);
    child->setFieldCode(L"changed");
    EXPECT_EQ(code(second, KdDbField::kAddChildren), L"shared");
    first.reset();
    EXPECT_EQ(code(second, KdDbField::kAddChildren), L"shared");
}

TEST_F(Fields, a_code_set_without_children_erases_those_the_field_owned) {
    build(L"\\AcExpr (1)");
    const KdDbObjectId child = inner->objectId();
    inner->close();
    EXPECT_EQ(outer->setFieldCode(L"\\AcExpr (2)"), Kdad::eOk);
    EXPECT_EQ(outer->childCount(), 0);
    EXPECT_EQ(kdhost::peekObject(child), nullptr);
    outer->close();
}

TEST_F(Fields, children_set_again_stay) {
    build(L"\\AcExpr (1)");
    Children children = one(inner);
    EXPECT_EQ(outer->setFieldCode(L"= %<\\_FldIdx 0>%", KdDbField::kTextField, &children), Kdad::eOk);
    EXPECT_FALSE(inner->isErased());
    EXPECT_EQ(code(*outer, KdDbField::kAddChildren), L"= \\AcExpr (1)");
    closeBoth();
}

TEST_F(Fields, reading_a_code_can_open_the_children) {
    build(L"\\AcExpr (1)");
    inner->close();
    Children children;
    wchar_t* text = nullptr;
    EXPECT_EQ(outer->getFieldCode(text, KdDbField::kAddChildren, &children, KdDb::kForWrite), Kdad::eOk);
    EXPECT_STREQ(text, L"\\AcExpr (1)");
    kdutDelBuffer(text);
    ASSERT_EQ(children.length(), 1);
    EXPECT_TRUE(children[0]->isWriteEnabled());
    children[0]->close();
    outer->close();
}

TEST_F(Fields, wrong_input_changes_nothing) {
    KdDbField field;
    field.setFieldCode(L"kept");
    EXPECT_EQ(field.setFieldCode(nullptr), Kdad::eInvalidInput);
    EXPECT_EQ(code(field, KdDbField::kFieldCode), L"kept");
    KdDbField* child = &field;
    for (const int wrong : {-1, 0}) EXPECT_EQ(field.getChild(wrong, child, KdDb::kForRead), Kdad::eInvalidIndex);
    EXPECT_EQ(child, nullptr);
    EXPECT_EQ(field.postInDatabase(nullptr), Kdad::eInvalidInput);
    Children itself = one(&field);
    field.setFieldCode(L"%<\\_FldIdx 0>%", KdDbField::kTextField, &itself);
    EXPECT_EQ(field.childCount(), 0) << "a field is no child of its own";
}

TEST_F(Fields, a_code_needs_a_write_open) {
    build(L"\\AcExpr (1)");
    outer->downgradeOpen();
    EXPECT_EQ(outer->setFieldCode(L"other"), Kdad::eNotOpenForWrite);
    EXPECT_EQ(code(*outer, KdDbField::kFieldCode), L"%<\\_FldIdx 0>%");
    closeBoth();
    kdtest::expectDisciplineBreach("written without a write open");
}

TEST_F(Fields, fields_that_hang_on_each_other_come_to_an_end) {
    auto* a = new KdDbField;
    auto* b = new KdDbField;
    ASSERT_EQ(a->postInDatabase(&m_database), Kdad::eOk);
    ASSERT_EQ(b->postInDatabase(&m_database), Kdad::eOk);
    Children ofA = one(b);
    Children ofB = one(a);
    const wchar_t* twice = L"%<\\_FldIdx 0>%%<\\_FldIdx 0>%";
    a->setFieldCode(twice, KdDbField::kTextField, &ofA);
    b->setFieldCode(twice, KdDbField::kTextField, &ofB);
    EXPECT_EQ(code(*a, KdDbField::kEvaluatedText), L"################");
    EXPECT_FALSE(code(*a, KdDbField::kAddChildren).empty());
    a->close();
    b->close();
}

TEST_F(Fields, the_evaluation_option_is_kept) {
    KdDbField field;
    EXPECT_EQ(field.setEvaluationOption(KdDbField::kOnDemand), Kdad::eOk);
    EXPECT_EQ(field.evaluationOption(), KdDbField::kOnDemand);
}

TEST_F(Fields, without_evaluation_a_formula_goes_on_showing_what_it_showed) {
    build(L"\\AcExpr (1+2)");
    inner->setEvaluationOption(KdDbField::kDisable);
    EXPECT_EQ(code(*outer, KdDbField::kEvaluatedText), L"3");
    inner->setFieldCode(L"\\AcExpr (4)");
    EXPECT_EQ(code(*outer, KdDbField::kEvaluatedText), L"####");
    inner->setEvaluationOption(KdDbField::kAutomatic);
    EXPECT_EQ(code(*outer, KdDbField::kEvaluatedText), L"4");
    closeBoth();
}

TEST_F(Fields, a_field_is_attached_to_an_object_as_a_whole) {
    const KdDbObjectId id = kdtest::appendLine(m_database);
    auto* line = mustOpen<KdDbLine>(id, KdDb::kForWrite);
    KdDbField* found = nullptr;
    EXPECT_FALSE(line->hasFields());
    EXPECT_EQ(line->getField(found, KdDb::kForRead), Kdad::eKeyNotFound);
    EXPECT_EQ(line->setField(nullptr), Kdad::eNullObjectPointer);
    auto* field = new KdDbField;
    field->setFieldCode(L"length");
    ASSERT_EQ(line->setField(field), Kdad::eOk);
    field->close();
    EXPECT_TRUE(line->hasFields());
    EXPECT_EQ(line->getField(found, KdDb::kForRead), Kdad::eOk);
    EXPECT_EQ(found, field);
    found->close();
    EXPECT_TRUE(line->extensionDictionary().isValid());
    EXPECT_EQ(line->createExtensionDictionary(), Kdad::eOk) << "also when it has one";
    line->close();
}

TEST_F(Fields, fields_are_attached_under_names_and_taken_off) {
    const KdDbObjectId id = kdtest::appendLine(m_database);
    auto* line = mustOpen<KdDbLine>(id, KdDb::kForWrite);
    auto* field = new KdDbField;
    EXPECT_EQ(line->setField(L"", field), Kdad::eInvalidKey);
    EXPECT_EQ(line->setField(nullptr, field), Kdad::eInvalidKey);
    ASSERT_EQ(line->setField(L"NOTE", field), Kdad::eOk);
    EXPECT_EQ(line->setField(L"OTHER", field), Kdad::eAlreadyInDatabase);
    field->close();
    KdDbField* found = nullptr;
    EXPECT_EQ(line->getField(L"TEXT", found, KdDb::kForRead), Kdad::eKeyNotFound);
    EXPECT_EQ(line->getField(nullptr, found, KdDb::kForRead), Kdad::eKeyNotFound);
    EXPECT_EQ(line->getField(L"NOTE", found, KdDb::kForRead), Kdad::eOk);
    EXPECT_EQ(found, field);
    found->close();
    EXPECT_TRUE(line->hasFields());
    EXPECT_EQ(line->removeField(L"NOTE"), Kdad::eOk);
    EXPECT_TRUE(field->isErased());
    EXPECT_FALSE(line->hasFields());
    EXPECT_EQ(line->removeField(L"NOTE"), Kdad::eKeyNotFound);
    line->close();
}

TEST_F(Fields, attaching_needs_a_write_open) {
    const KdDbObjectId id = kdtest::appendLine(m_database);
    auto* line = mustOpen<KdDbLine>(id, KdDb::kForRead);
    KdDbField field;
    EXPECT_EQ(line->setField(&field), Kdad::eNotOpenForWrite);
    line->close();
    kdtest::expectDisciplineBreach("written without a write open");
}

TEST_F(Fields, an_object_in_memory_owns_what_is_attached_to_it) {
    KdDbMText text;
    auto* field = new KdDbField;
    field->setFieldCode(L"first");
    EXPECT_EQ(text.setField(L"TEXT", field), Kdad::eOk);
    EXPECT_TRUE(text.hasFields());
    KdDbField* found = nullptr;
    EXPECT_EQ(text.getField(found, KdDb::kForWrite), Kdad::eOk);
    EXPECT_EQ(found, field);
    auto* other = new KdDbField;
    other->setFieldCode(L"second");
    EXPECT_EQ(text.setField(other), Kdad::eOk) << "in the place of the first";
    EXPECT_STREQ(text.contents(), L"second");
    EXPECT_EQ(text.removeField(L"TEXT"), Kdad::eOk);
    EXPECT_FALSE(text.hasFields());
    EXPECT_STREQ(text.contents(), L"");
}

TEST_F(Fields, a_text_shows_its_field_until_it_gets_contents_of_its_own) {
    KdDbMText text;
    text.setContents(L"own");
    auto* field = new KdDbField;
    field->setFieldCode(L"\\AcExpr (2*3)");
    text.setField(field);
    EXPECT_STREQ(text.contents(), L"6");
    EXPECT_GT(text.actualWidth(), 0.0);
    text.setContents(L"typed");
    EXPECT_STREQ(text.contents(), L"typed");
    EXPECT_FALSE(text.hasFields());
}

TEST_F(Fields, an_attached_field_that_is_posted_leaves_its_text_and_outlives_it) {
    KdDbObjectId id;
    {
        KdDbMText text;
        auto* field = new KdDbField;
        field->setFieldCode(L"\\AcExpr (2*3)");
        text.setField(field);
        KdDbField* taken = nullptr;
        ASSERT_EQ(text.getField(L"TEXT", taken, KdDb::kForWrite), Kdad::eOk);
        ASSERT_EQ(taken->postInDatabase(&m_database), Kdad::eOk);
        id = taken->objectId();
        EXPECT_STREQ(text.contents(), L"6");
        taken->close();
    }
    const auto* kept = kdhost::peek<KdDbField>(id);
    ASSERT_NE(kept, nullptr);
    EXPECT_EQ(kdhost::evaluatedText(*kept), L"6");
}

TEST_F(Fields, what_is_attached_in_memory_goes_into_the_drawing_with_its_object) {
    auto* text = new KdDbMText;
    auto* field = new KdDbField;
    field->setFieldCode(L"\\AcExpr (2*3)");
    text->setField(field);
    const KdDbObjectId id = kdtest::append(m_database, text);
    EXPECT_EQ(field->database(), &m_database);
    EXPECT_FALSE(field->isReadEnabled()) << "posted along";
    const auto* posted = kdhost::peek<KdDbMText>(id);
    EXPECT_TRUE(posted->hasFields());
    EXPECT_STREQ(posted->contents(), L"6");
}

TEST_F(Fields, a_clone_in_memory_brings_copies_of_the_children_that_can_be_set_anew) {
    build(L"\\AcExpr (1)");
    closeBoth();
    auto* open = mustOpen<KdDbField>(outer->objectId());
    const std::unique_ptr<KdDbField> clone(open->clone());
    EXPECT_EQ(clone->database(), nullptr);
    EXPECT_EQ(clone->childCount(), 1);
    EXPECT_EQ(code(*clone, KdDbField::kAddChildren), L"\\AcExpr (1)");
    const wchar_t* codes[] = {L"first", L"second"};
    for (int i = 0; i < 2; ++i) {
        auto* child = new KdDbField;
        child->setFieldCode(codes[i]);
        EXPECT_EQ(clone->setField(L"", child), Kdad::eOk);
        EXPECT_EQ(clone->childCount(), i + 1) << "the first takes a place, the second is one more";
        EXPECT_EQ(code(*clone, KdDbField::kAddChildren), L"first");
    }
    EXPECT_EQ(clone->setField(L"", clone.get()), Kdad::eNullObjectPointer);
    EXPECT_EQ(code(*open, KdDbField::kAddChildren), L"\\AcExpr (1)") << "the original has its own";
    open->close();
}

TEST_F(Fields, an_object_in_memory_has_no_extension_dictionary) {
    KdDbLine line;
    EXPECT_EQ(line.createExtensionDictionary(), Kdad::eNotInDatabase);
    EXPECT_TRUE(line.extensionDictionary().isNull());
    EXPECT_FALSE(line.hasFields());
}

}  // namespace
