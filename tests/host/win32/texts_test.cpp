// The texts of the table module: complete in each language, with the same arguments, fit for the prompts that use
// them, and there for every number that the module's sources load.

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <cwctype>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "host/rx/encoding.h"
#include "host/win32/texttable.h"

namespace {

using Texts = std::map<unsigned, std::wstring>;
using Words = std::vector<std::wstring>;

constexpr const char* kLanguages[] = {"en", "zh_CN"};

QString read(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

QString path(const char* relative) {
    return QStringLiteral(KD_SOURCE_DIRECTORY "/module/") + QLatin1String(relative);
}

Texts textsOf(const std::string& language) {
    const QString file = read(path(("resources/strings/" + language + ".tsv").c_str()));
    const kdhost::TextTable table = kdhost::parseTextTable(file.toStdString());
    return {table.begin(), table.end()};
}

std::vector<std::string> conversions(const std::wstring& text) {
    static const QRegularExpression conversion(QStringLiteral("%[-+ #0-9.*]*(?:I64|I32|ll|l|h)?[a-zA-Z%]"));
    std::vector<std::string> list;
    auto match = conversion.globalMatch(QString::fromStdWString(text));
    while (match.hasNext()) list.push_back(match.next().captured().toStdString());
    return list;
}

/// A keyword list's halves.
struct KeywordList {
    Words local;
    Words global;
};

KeywordList keywordList(const std::wstring& text) {
    KeywordList list;
    std::wistringstream words(text);
    bool global = false;
    for (std::wstring word; words >> word;) {
        if (word.front() == L'_') {
            global = true;
            word.erase(0, 1);
        }
        (global ? list.global : list.local).push_back(word);
    }
    return list;
}

/// The options that a prompt offers between its brackets, without their blanks.
Words options(std::wstring prompt) {
    std::erase(prompt, L' ');
    const std::size_t begin = prompt.find(L'[');
    const std::size_t end = prompt.find(L']');
    if (begin == std::wstring::npos || end == std::wstring::npos) return {};
    Words list;
    std::wistringstream words(prompt.substr(begin + 1, end - begin - 1));
    for (std::wstring word; std::getline(words, word, L'/');) list.push_back(word);
    return list;
}

/// The first run of Latin capitals, which is what must be typed of a keyword.
std::wstring capitals(const std::wstring& word) {
    const auto isCapital = [](wchar_t c) { return c >= L'A' && c <= L'Z'; };
    const auto begin = std::find_if(word.begin(), word.end(), isCapital);
    return {begin, std::find_if_not(begin, word.end(), isCapital)};
}

/// Keyword lists of the command-line editor; each one's prompt has the next number.
constexpr unsigned kKeywordLists[] = {6209, 6211, 6213, 6215, 6217, 6219, 6221, 6223};

std::string shown(const std::wstring& text) {
    return kdhost::toUtf8(text);
}

/// Numbers that a source file loads, by any of the three ways of loading.
std::set<unsigned> loadedNumbers(const QString& source) {
    static const QRegularExpression loading(
        QStringLiteral("\\bloadText\\(\\s*(\\d{3,})\\b|\\bLoadStringW\\([^;{}]*?,\\s*(\\d{3,})\\s*,|"
                       "\\bloadString\\([^;{}]*?,\\s*(\\d{3,})\\s*\\)"));
    std::set<unsigned> numbers;
    auto match = loading.globalMatch(source);
    while (match.hasNext()) {
        const QRegularExpressionMatch found = match.next();
        numbers.insert(found.captured(found.lastCapturedIndex()).toUInt());
    }
    return numbers;
}

}  // namespace

TEST(ModuleTexts, each_language_has_the_same_numbers_and_no_empty_text) {
    const Texts english = textsOf("en");
    const Texts chinese = textsOf("zh_CN");
    ASSERT_FALSE(english.empty());
    for (const auto& [number, text] : english) EXPECT_EQ(chinese.count(number), 1u) << number;
    for (const auto& [number, text] : chinese) EXPECT_EQ(english.count(number), 1u) << number;
    for (const Texts& texts : {english, chinese}) {
        for (const auto& [number, text] : texts) {
            EXPECT_FALSE(std::all_of(text.begin(), text.end(), [](wchar_t c) {
                return std::iswspace(static_cast<wint_t>(c));
            })) << number;
        }
    }
}

TEST(ModuleTexts, every_line_of_the_files_is_a_text_in_ascending_order_of_numbers) {
    for (const char* language : kLanguages) {
        const QString file = read(path((std::string("resources/strings/") + language + ".tsv").c_str()));
        unsigned last = 0;
        for (const QString& line : file.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            const unsigned number = line.section(QLatin1Char('\t'), 0, 0).toUInt();
            EXPECT_GT(number, last) << language << ": " << line.toStdString();
            EXPECT_EQ(line.count(QLatin1Char('\t')), 1) << language << ": " << line.toStdString();
            last = number;
        }
    }
}

TEST(ModuleTexts, conversions_are_the_same_in_the_same_order) {
    const Texts chinese = textsOf("zh_CN");
    for (const auto& [number, text] : textsOf("en")) {
        EXPECT_EQ(conversions(text), conversions(chinese.at(number))) << number;
    }
    EXPECT_EQ(conversions(chinese.at(6057)), std::vector<std::string>{"%s"});
}

TEST(ModuleTexts, every_number_that_the_module_loads_has_a_text) {
    const Texts english = textsOf("en");
    int checked = 0;
    QDirIterator files(path(""), {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        for (const unsigned number : loadedNumbers(read(file))) {
            EXPECT_EQ(english.count(number), 1u) << number << " in " << file.toStdString();
            ++checked;
        }
    }
    EXPECT_GT(checked, 0);
}

TEST(ModuleTexts, the_walk_over_the_sources_knows_each_way_of_loading) {
    EXPECT_EQ(loadedNumbers(QStringLiteral("a = loadText(2050) + loadText( 2051 );\n"
                                           "LoadStringW(AfxGetResourceHandle(), 2052, buffer, 1024);\n"
                                           "LoadStringW(handle,\n            2053, buffer.data(), 132);\n"
                                           "text.loadString(hLibModule, 2009); other(x, 7777);\n"
                                           "LoadStringW(handle, number, buffer, 1024);")),
              (std::set<unsigned>{2009, 2050, 2051, 2052, 2053}));
}

TEST(ModuleTexts, commands_stay_typeable_in_each_language) {
    const std::map<unsigned, std::wstring> names = {{2002, L"TABLESTYLE"}, {2005, L"TABLE"},
                                                    {2009, L"-TABLE"},     {2052, L"TABLEEXPORT"},
                                                    {2101, L"TABLEDIT"},   {6206, L"EDITTABLECELL"}};
    for (const char* language : kLanguages) {
        const Texts texts = textsOf(language);
        for (const auto& [number, name] : names) EXPECT_EQ(texts.at(number), name) << language;
    }
}

TEST(ModuleTexts, keyword_lists_have_a_local_word_for_each_global_one_and_the_same_global_ones) {
    const Texts english = textsOf("en");
    for (const char* language : kLanguages) {
        const Texts texts = textsOf(language);
        for (const unsigned number : kKeywordLists) {
            const KeywordList list = keywordList(texts.at(number));
            EXPECT_EQ(list.local.size(), list.global.size()) << language << number;
            EXPECT_EQ(list.global, keywordList(english.at(number)).global) << language << number;
        }
    }
    EXPECT_EQ(keywordList(english.at(6213)).global,
              (Words{L"BAck", L"Sum", L"Average", L"Count", L"Cell", L"Equation", L"Quit"}));
}

TEST(ModuleTexts, the_capitals_of_a_local_keyword_choose_it_alone) {
    for (const char* language : kLanguages) {
        const Texts texts = textsOf(language);
        for (const unsigned number : kKeywordLists) {
            std::set<std::wstring> seen;
            for (const std::wstring& word : keywordList(texts.at(number)).local) {
                EXPECT_FALSE(capitals(word).empty()) << language << number << shown(word);
                EXPECT_TRUE(seen.insert(capitals(word)).second) << language << number << shown(word);
            }
        }
    }
}

TEST(ModuleTexts, a_prompt_offers_exactly_its_lists_local_words) {
    for (const char* language : kLanguages) {
        const Texts texts = textsOf(language);
        for (const unsigned number : kKeywordLists) {
            EXPECT_EQ(options(texts.at(number + 1)), keywordList(texts.at(number)).local) << language << number;
        }
    }
}

TEST(ModuleTexts, display_names_differ_within_each_group) {
    const std::vector<std::vector<unsigned>> groups = {
        {2037, 2038, 2039}, {2140, 2141}, {5301, 5302, 5303, 5304, 5305, 5307, 5308, 5309, 5310}};
    for (const char* language : kLanguages) {
        const Texts texts = textsOf(language);
        for (const std::vector<unsigned>& group : groups) {
            std::set<std::wstring> names;
            for (const unsigned number : group) names.insert(texts.at(number));
            EXPECT_EQ(names.size(), group.size()) << language;
        }
    }
}
