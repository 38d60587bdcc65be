// The names of cell styles, cell classes and data formats, and what the user reads in their place, in both
// languages.

#include <gtest/gtest.h>

#include <optional>
#include <random>

#include "host/win32/modules.h"
#include "module/core/resources.h"
#include "module/core/ssicmp.h"
#include "module/core/tablecommon.h"
#include "tests/support/resourcemodule.h"

namespace kdtest {
namespace {

using Text = CStdStr<wchar_t>;
using Common = CVqTableCommon;

class StyleVocabulary : public ::testing::TestWithParam<kdhost::Language> {
protected:
    void SetUp() override {
        kdhost::setLanguage(GetParam());
        m_resources.emplace();
    }
    void TearDown() override {
        m_resources.reset();
        kdhost::setLanguage(kdhost::Language::English);
    }

    static Text internal(Text name) {
        Common::DefaultCellStyleConvert(name);
        return name;
    }
    static Text display(Text name) {
        Common::DefaultCellStyleReverseConvert(name);
        return name;
    }
    /// Latin letters in the other case.
    static Text otherCase(Text text) {
        for (wchar_t& c : text) {
            if (c >= L'a' && c <= L'z') {
                c -= 32;
            } else if (c >= L'A' && c <= L'Z') {
                c += 32;
            }
        }
        return text;
    }

private:
    std::optional<ResourceModule> m_resources;
};

INSTANTIATE_TEST_SUITE_P(Languages, StyleVocabulary,
                         ::testing::Values(kdhost::Language::English, kdhost::Language::Chinese), [](const auto& info) {
                             return info.param == kdhost::Language::English ? "English" : "Chinese";
                         });

struct StyleName {
    const wchar_t* internal;
    unsigned text;
};
constexpr StyleName kStyleNames[] = {{L"_TITLE", 2038}, {L"_HEADER", 2039}, {L"_DATA", 2037}};

TEST_P(StyleVocabulary, The_three_default_cell_styles_have_an_internal_and_a_display_name) {
    for (const auto& [name, text] : kStyleNames) {
        const Text shown = loadText(text);
        ASSERT_FALSE(shown.empty()) << text;
        EXPECT_EQ(display(name), shown);
        EXPECT_EQ(internal(shown), name);
    }
}

TEST_P(StyleVocabulary, Names_of_cell_styles_are_compared_without_regard_to_case) {
    EXPECT_EQ(display(L"_data"), loadText(2037));
    for (const auto& [name, text] : kStyleNames) {
        EXPECT_EQ(display(otherCase(name)), loadText(text));
        EXPECT_EQ(internal(otherCase(loadText(text))), name);
    }
}

TEST_P(StyleVocabulary, A_name_that_is_none_of_the_three_stays) {
    for (const wchar_t* name : {L"", L"My style", L"_DATA ", L"DATA_", L"单元", L"_"}) {
        EXPECT_EQ(internal(name), name);
        EXPECT_EQ(display(name), name);
    }
    for (const auto& [name, text] : kStyleNames) {
        EXPECT_EQ(internal(name), name) << "an internal name is no display name";
        EXPECT_EQ(display(loadText(text)), loadText(text));
    }
}

TEST_P(StyleVocabulary, The_name_HERDER_of_header_rows_is_missed_by_every_conversion) {
    EXPECT_EQ(display(L"_HERDER"), L"_HERDER");
    EXPECT_EQ(internal(L"_HERDER"), L"_HERDER");
}

TEST_P(StyleVocabulary, Random_names_come_back_from_a_conversion_and_its_reverse) {
    std::mt19937 random(37);
    const std::wstring letters = L"_TITLEheadrDt 数据标题";
    for (int round = 0; round < 5000; ++round) {
        Text name;
        for (std::size_t length = random() % 7; length > 0; --length) name += letters[random() % letters.size()];
        bool isDefault = false;
        for (const auto& [known, text] : kStyleNames) {
            isDefault = isDefault || name.CompareNoCase(known) == 0 || name.CompareNoCase(loadText(text)) == 0;
        }
        if (isDefault) continue;
        EXPECT_EQ(internal(name), name);
        EXPECT_EQ(display(name), name);
    }
}

TEST_P(StyleVocabulary, Cell_classes_are_label_for_its_text_and_data_for_every_other) {
    EXPECT_EQ(Common::TypeStringToCellClass(loadText(2141)), KdDb::kCellClassLabel);
    EXPECT_EQ(Common::TypeStringToCellClass(otherCase(loadText(2141))), KdDb::kCellClassLabel);
    for (const Text& text : {Text(L""), Text(L"x"), Text(loadText(2141) + L" ")}) {
        EXPECT_EQ(Common::TypeStringToCellClass(text), KdDb::kCellClassData);
    }
}

TEST_P(StyleVocabulary, The_text_of_the_data_class_is_compared_without_effect) {
    EXPECT_EQ(Common::TypeStringToCellClass(loadText(2140)), Common::TypeStringToCellClass(L"no class at all"));
}

TEST_P(StyleVocabulary, Cell_classes_have_their_texts_and_other_values_none) {
    EXPECT_EQ(Common::CellClassToTypeString(KdDb::kCellClassLabel), loadText(2141));
    EXPECT_EQ(Common::CellClassToTypeString(KdDb::kCellClassData), loadText(2140));
    EXPECT_FALSE(loadText(2140).empty());
    EXPECT_FALSE(loadText(2141).empty());
    for (const int value : {-1, 0, 3, 4}) {
        EXPECT_EQ(Common::CellClassToTypeString(static_cast<KdDb::CellClass>(value)), L"");
    }
}

struct FormatName {
    int type;
    int unit;
    unsigned text;
};
constexpr FormatName kFormatNames[] = {{512, 0, 5301}, {2, 0, 5302},  {2, 2, 5303},  {4, 0, 5304}, {8, 0, 5305},
                                       {1, 0, 5307},   {32, 0, 5308}, {2, 16, 5309}, {2, 32, 5310}};

TEST_P(StyleVocabulary, Data_formats_have_nine_names_and_no_other_pair_has_one) {
    for (int type = 0; type <= 513; ++type) {
        for (int unit = 0; unit <= 33; ++unit) {
            const auto* row = std::find_if(std::begin(kFormatNames), std::end(kFormatNames),
                                           [&](const FormatName& r) { return r.type == type && r.unit == unit; });
            const Text expected = row == std::end(kFormatNames) ? Text() : loadText(row->text);
            EXPECT_EQ(Common::FormatFormDataUnitType(static_cast<KdValue::DataType>(type),
                                                     static_cast<KdValue::UnitType>(unit)),
                      expected)
                << type << ", " << unit;
        }
    }
    EXPECT_TRUE(loadText(5306).empty()) << "a number that is not in use";
}

TEST_P(StyleVocabulary, The_name_of_a_data_format_gives_its_pair_back) {
    for (const FormatName& row : kFormatNames) {
        ASSERT_FALSE(loadText(row.text).empty()) << row.text;
        for (const Text& name : {Text(loadText(row.text)), otherCase(loadText(row.text))}) {
            auto type = KdValue::kUnknown;
            auto unit = static_cast<KdValue::UnitType>(99);
            Common::DataUnitTypeFormFormat(type, unit, name);
            EXPECT_EQ(type, row.type) << row.text;
            EXPECT_EQ(unit, row.unit) << row.text;
        }
    }
}

TEST_P(StyleVocabulary, A_text_that_names_no_data_format_leaves_the_pair_as_it_is) {
    for (const wchar_t* text : {L"", L"x", L"5301"}) {
        auto type = KdValue::kPoint;
        auto unit = KdValue::kAngle;
        Common::DataUnitTypeFormFormat(type, unit, text);
        EXPECT_EQ(type, KdValue::kPoint);
        EXPECT_EQ(unit, KdValue::kAngle);
    }
}

TEST(StyleVocabularyWithoutResources, No_text_is_a_name_and_the_empty_one_is_none) {
    const HINSTANCE kept = AfxGetResourceHandle();
    AfxSetResourceHandle(nullptr);
    for (const wchar_t* given : {L"", L"Data"}) {
        Text name = given;
        Common::DefaultCellStyleConvert(name);
        EXPECT_EQ(name, given);
        EXPECT_EQ(Common::TypeStringToCellClass(given), KdDb::kCellClassData);
        auto type = KdValue::kPoint;
        auto unit = KdValue::kUnitless;
        Common::DataUnitTypeFormFormat(type, unit, given);
        EXPECT_EQ(type, KdValue::kPoint);
    }
    EXPECT_EQ(Common::FormatFormDataUnitType(KdValue::kGeneral, KdValue::kUnitless), L"");
    EXPECT_EQ(Common::CellClassToTypeString(KdDb::kCellClassLabel), L"");
    AfxSetResourceHandle(kept);
}

TEST(NamesWithoutRegardToCase, Fold_the_letters_from_A_to_Z_and_no_others) {
    EXPECT_EQ(ssicmp(L"Title", L"tITLE"), 0);
    EXPECT_EQ(ssicmp(L"", L""), 0);
    EXPECT_NE(ssicmp(L"Ä", L"ä"), 0);
    EXPECT_NE(ssicmp(L"Д", L"д"), 0);
    EXPECT_LT(ssicmp(L"a", L"B"), 0);
    EXPECT_GT(ssicmp(L"ab", L"A"), 0);
    EXPECT_NE(ssicmp(L"[", L"{"), 0) << "neighbours of the letters have no case";
    EXPECT_NE(ssicmp(L"@", L"`"), 0);
}

}  // namespace
}  // namespace kdtest
