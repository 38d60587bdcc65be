// Dictionaries: names without regard to case, order, replacement, erased entries.

#include <gtest/gtest.h>

#include <map>
#include <random>

#include "host/db/access.h"
#include "kd/db/field.h"
#include "tests/host/db/undofixture.h"
#include "tests/support/leakguard.h"

namespace {

using kdtest::mustOpen;

class Dictionaries : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(m_database.getNamedObjectsDictionary(m_root, KdDb::kForWrite), Kdad::eOk);
        auto* made = new KdDbDictionary;
        KdDbObjectId id;
        ASSERT_EQ(m_root->setAt(L"Own", made, id), Kdad::eOk);
        m_dictionary = made;
        m_root->close();
    }
    void TearDown() override { m_dictionary->close(); }

    KdDbObjectId put(const wchar_t* name) {
        auto* field = new KdDbField;
        KdDbObjectId id;
        EXPECT_EQ(m_dictionary->setAt(name, field, id), Kdad::eOk);
        field->close();
        return id;
    }

    std::vector<std::wstring> names() const {
        std::vector<std::wstring> names;
        std::unique_ptr<KdDbDictionaryIterator> iterator(m_dictionary->newIterator());
        for (; !iterator->done(); iterator->next()) names.emplace_back(iterator->name());
        return names;
    }

    static void setErased(KdDbObjectId id, bool erased) {
        KdDbObject* object = nullptr;
        ASSERT_EQ(kddbOpenObject(object, id, KdDb::kForWrite, true), Kdad::eOk);
        EXPECT_EQ(object->erase(erased), Kdad::eOk);
        object->close();
    }

    KdDbDatabase m_database;
    KdDbDictionary* m_root = nullptr;
    KdDbDictionary* m_dictionary = nullptr;
};

TEST_F(Dictionaries, names_are_found_without_regard_to_case_and_keep_their_case) {
    const KdDbObjectId id = put(L"MyStyle");
    KdDbObjectId found;
    EXPECT_EQ(m_dictionary->getAt(L"MYSTYLE", found), Kdad::eOk);
    EXPECT_EQ(found, id);
    std::wstring name;
    EXPECT_EQ(m_dictionary->nameAt(id, name), Kdad::eOk);
    EXPECT_EQ(name, L"MyStyle");
    EXPECT_TRUE(m_dictionary->has(L"mystyle"));
    EXPECT_TRUE(m_dictionary->has(id));
    EXPECT_EQ(kdhost::peekObject(id)->ownerId(), m_dictionary->objectId());
}

TEST_F(Dictionaries, letters_beyond_ascii_have_no_case_as_modules_compare_them) {
    const KdDbObjectId capital = put(L"Ärger");
    EXPECT_TRUE(m_dictionary->has(L"ÄRGER"));
    EXPECT_FALSE(m_dictionary->has(L"ärger"));
    EXPECT_NE(put(L"ärger"), capital);
    EXPECT_TRUE(m_dictionary->has(L"äRGER"));
}

TEST_F(Dictionaries, a_missing_name_gives_the_null_id) {
    KdDbObjectId found(5);
    EXPECT_EQ(m_dictionary->getAt(L"None", found), Kdad::eKeyNotFound);
    EXPECT_TRUE(found.isNull());
    EXPECT_EQ(m_dictionary->getAt(nullptr, found), Kdad::eKeyNotFound);
    std::wstring name = L"kept";
    EXPECT_EQ(m_dictionary->nameAt(m_database.layerZero(), name), Kdad::eKeyNotFound);
    EXPECT_EQ(name, L"kept");
}

TEST_F(Dictionaries, entries_are_walked_by_name_regardless_of_case) {
    for (const wchar_t* name : {L"delta", L"Alpha", L"charlie", L"Bravo"}) put(name);
    EXPECT_EQ(names(), (std::vector<std::wstring>{L"Alpha", L"Bravo", L"charlie", L"delta"}));
    EXPECT_EQ(m_dictionary->numEntries(), 4U);
}

TEST_F(Dictionaries, the_end_of_a_walk_has_no_entry) {
    std::unique_ptr<KdDbDictionaryIterator> iterator(m_dictionary->newIterator());
    EXPECT_TRUE(iterator->done());
    EXPECT_FALSE(iterator->next());
    EXPECT_STREQ(iterator->name(), L"");
    EXPECT_TRUE(iterator->objectId().isNull());
}

TEST_F(Dictionaries, an_object_put_in_anothers_place_erases_it) {
    const KdDbObjectId first = put(L"Name");
    const KdDbObjectId second = put(L"NAME");
    EXPECT_EQ(kdhost::peekObject(first), nullptr);
    KdDbObjectId found;
    m_dictionary->getAt(L"name", found);
    EXPECT_EQ(found, second);
    EXPECT_EQ(names(), std::vector<std::wstring>{L"NAME"});
}

TEST_F(Dictionaries, an_object_that_someone_reads_is_not_replaced) {
    const KdDbObjectId first = put(L"Name");
    auto* reader = mustOpen<KdDbField>(first);
    auto field = std::make_unique<KdDbField>();
    KdDbObjectId id;
    EXPECT_EQ(m_dictionary->setAt(L"Name", field.get(), id), Kdad::eWasOpenForRead);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(field->database(), nullptr);
    EXPECT_TRUE(m_dictionary->has(first));
    reader->close();
}

TEST_F(Dictionaries, wrong_input_adds_nothing) {
    auto field = std::make_unique<KdDbField>();
    KdDbObjectId id;
    EXPECT_EQ(m_dictionary->setAt(L"", field.get(), id), Kdad::eInvalidKey);
    EXPECT_EQ(m_dictionary->setAt(nullptr, field.get(), id), Kdad::eInvalidKey);
    EXPECT_EQ(m_dictionary->setAt(L"Name", nullptr, id), Kdad::eNullObjectPointer);
    EXPECT_EQ(m_dictionary->setAt(L"Name", m_root, id), Kdad::eAlreadyInDatabase);
    EXPECT_EQ(KdDbDictionary().setAt(L"Name", field.get(), id), Kdad::eNotInDatabase);
    EXPECT_EQ(m_dictionary->numEntries(), 0U);
}

TEST_F(Dictionaries, adding_needs_a_write_open) {
    m_dictionary->downgradeOpen();
    auto field = std::make_unique<KdDbField>();
    KdDbObjectId id;
    EXPECT_EQ(m_dictionary->setAt(L"Name", field.get(), id), Kdad::eNotOpenForWrite);
    EXPECT_EQ(m_dictionary->numEntries(), 0U);
    kdtest::expectDisciplineBreach("written without a write open");
}

TEST_F(Dictionaries, a_rename_is_refused_for_a_missing_empty_or_taken_name) {
    const KdDbObjectId id = put(L"One");
    put(L"Two");
    EXPECT_FALSE(m_dictionary->setName(L"Three", L"Four"));
    EXPECT_FALSE(m_dictionary->setName(L"One", L""));
    EXPECT_FALSE(m_dictionary->setName(L"One", nullptr));
    EXPECT_FALSE(m_dictionary->setName(L"One", L"TWO"));
    EXPECT_TRUE(m_dictionary->setName(L"One", L"ONE"));
    EXPECT_TRUE(m_dictionary->setName(L"one", L"Zulu"));
    std::wstring name;
    m_dictionary->nameAt(id, name);
    EXPECT_EQ(name, L"Zulu");
    EXPECT_FALSE(m_dictionary->has(L"One"));
    EXPECT_EQ(names(), (std::vector<std::wstring>{L"Two", L"Zulu"}));
}

TEST_F(Dictionaries, an_entry_taken_out_leaves_its_object) {
    const KdDbObjectId one = put(L"One");
    const KdDbObjectId two = put(L"Two");
    EXPECT_EQ(m_dictionary->remove(L"ONE"), Kdad::eOk);
    EXPECT_EQ(m_dictionary->remove(L"One"), Kdad::eKeyNotFound);
    EXPECT_EQ(m_dictionary->remove(two), Kdad::eOk);
    EXPECT_EQ(m_dictionary->remove(two), Kdad::eKeyNotFound);
    EXPECT_EQ(m_dictionary->numEntries(), 0U);
    EXPECT_NE(kdhost::peekObject(one), nullptr);
}

TEST_F(Dictionaries, an_entry_of_an_erased_object_is_away_until_it_comes_back) {
    const KdDbObjectId id = put(L"One");
    put(L"Two");
    setErased(id, true);
    EXPECT_FALSE(m_dictionary->has(L"One"));
    EXPECT_FALSE(m_dictionary->has(id));
    EXPECT_EQ(m_dictionary->numEntries(), 1U);
    EXPECT_EQ(names(), std::vector<std::wstring>{L"Two"});
    setErased(id, false);
    EXPECT_EQ(names(), (std::vector<std::wstring>{L"One", L"Two"}));
}

TEST_F(Dictionaries, told_of_an_erased_object_it_takes_the_entry_out) {
    const KdDbObjectId id = put(L"One");
    put(L"Two");
    m_dictionary->erased(kdhost::peekObject(id), true);
    EXPECT_EQ(names(), std::vector<std::wstring>{L"Two"});
    EXPECT_FALSE(m_dictionary->has(id));
    EXPECT_NE(kdhost::peekObject(id), nullptr) << "it is told, it doesn't erase";
    m_dictionary->erased(kdhost::peekObject(id), true);
    EXPECT_EQ(m_dictionary->numEntries(), 1U) << "without an entry nothing happens";
}

TEST_F(Dictionaries, told_of_what_comes_back_of_nothing_or_without_a_write_open_it_stays) {
    const KdDbObjectId id = put(L"One");
    m_dictionary->erased(kdhost::peekObject(id), false);
    m_dictionary->erased(nullptr, true);
    const KdDbField stranger;
    m_dictionary->erased(&stranger, true);
    m_dictionary->downgradeOpen();
    m_dictionary->erased(kdhost::peekObject(id), true);
    EXPECT_EQ(names(), std::vector<std::wstring>{L"One"});
    KdDbField field;
    field.erased(&stranger, true);  // what lists nothing has nothing to do
}

class DictionaryEntries : public kdtest::Undo {};

TEST_F(DictionaryEntries, undo_brings_the_entry_of_an_erased_object_back) {
    KdDbDictionary* dictionary = nullptr;
    ASSERT_EQ(m_database.getNamedObjectsDictionary(dictionary, KdDb::kForWrite), Kdad::eOk);
    const KdDbObjectId dictionaryId = dictionary->objectId();
    KdDbObjectId id;
    auto* field = new KdDbField;
    ASSERT_EQ(dictionary->setAt(L"Mine", field, id), Kdad::eOk);
    field->close();
    dictionary->close();
    step([&] {
        edit<KdDbDictionary>(dictionaryId, [&](KdDbDictionary& open) { open.erased(kdhost::peekObject(id), true); });
        edit<KdDbField>(id, [](KdDbField& open) { EXPECT_EQ(open.erase(), Kdad::eOk); });
    });
    const auto has = [&] { return kdhost::peek<KdDbDictionary>(dictionaryId)->has(L"Mine"); };
    EXPECT_FALSE(has());
    ASSERT_EQ(history().undo(), Kdad::eOk);
    EXPECT_TRUE(has());
    ASSERT_EQ(history().redo(), Kdad::eOk);
    EXPECT_FALSE(has());
}

TEST_F(Dictionaries, thousands_of_random_steps_agree_with_a_plain_map) {
    std::map<std::wstring, KdDbObjectId> model;  // names in capitals
    std::mt19937 random(static_cast<unsigned>(::testing::UnitTest::GetInstance()->random_seed()));
    const auto name = [&](wchar_t letter) { return std::wstring(1, letter) + std::to_wstring(random() % 500); };
    for (int step = 0; step < 20'000; ++step) {
        const std::wstring number = std::to_wstring(random() % 500);
        const std::wstring lower = L"n" + number;
        const std::wstring upper = L"N" + number;
        switch (random() % 4) {
            case 0:
                model[upper] = put(random() % 2 == 0 ? lower.c_str() : upper.c_str());
                break;
            case 1:
                EXPECT_EQ(m_dictionary->remove(lower.c_str()) == Kdad::eOk, model.erase(upper) == 1);
                break;
            case 2: {
                const std::wstring other = name(L'N');
                const bool works = model.contains(upper) && (other == upper || !model.contains(other));
                EXPECT_EQ(m_dictionary->setName(upper.c_str(), other.c_str()), works);
                if (works && other != upper) {
                    model[other] = model.at(upper);
                    model.erase(upper);
                }
                break;
            }
            default: {
                KdDbObjectId id;
                EXPECT_EQ(m_dictionary->getAt(lower.c_str(), id) == Kdad::eOk, model.contains(upper));
                if (id.isValid()) {
                    EXPECT_EQ(id, model.at(upper));
                }
            }
        }
    }
    std::vector<KdDbObjectId> walked;
    std::unique_ptr<KdDbDictionaryIterator> iterator(m_dictionary->newIterator());
    for (; !iterator->done(); iterator->next()) walked.push_back(iterator->objectId());
    std::vector<KdDbObjectId> expected;
    for (const auto& [key, id] : model) expected.push_back(id);
    EXPECT_EQ(walked, expected);
    EXPECT_EQ(m_dictionary->numEntries(), model.size());
}

}  // namespace
