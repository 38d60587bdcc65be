// The texts of the module: complete in each language, with the same arguments, and there for every number that the
// sources name. What keyword lists and prompts need besides is tested with the menus that use them.

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <cwctype>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "host/win32/texttable.h"
#include "tests/support/places.h"

namespace {

using Texts = std::map<unsigned, std::wstring>;

constexpr const char* kLanguages[] = {"en", "zh_CN"};

QString read(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

QString path(const char* relative) {
    return kdtest::sourcePath("module/") + QLatin1String(relative);
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

/// The numbers of a source file, comments and asserted sizes left out, that stand in a hundred of numbers in which
/// texts have theirs: whichever way a number goes to the loader, it is written down somewhere.
std::set<unsigned> numbersOfTexts(QString source, const Texts& texts) {
    std::set<unsigned> hundreds;
    for (const auto& [number, text] : texts) hundreds.insert(number / 100);
    static const QRegularExpression comment(QStringLiteral("//[^\n]*|static_assert\\([^;]*;"));
    static const QRegularExpression whole(QStringLiteral("(?<![\\w.])[1-9]\\d{3}(?![\\w.])"));
    std::set<unsigned> numbers;
    auto match = whole.globalMatch(source.remove(comment));
    while (match.hasNext()) {
        const unsigned number = match.next().captured().toUInt();
        if (hundreds.count(number / 100) != 0) numbers.insert(number);
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

TEST(ModuleTexts, every_number_of_a_text_in_the_modules_sources_has_one) {
    const Texts english = textsOf("en");
    std::size_t checked = 0;
    QDirIterator files(path(""), {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        const std::set<unsigned> numbers = numbersOfTexts(read(file), english);
        for (const unsigned number : numbers) EXPECT_EQ(english.count(number), 1u) << number << file.toStdString();
        checked += numbers.size();
    }
    EXPECT_GT(checked, english.size() / 2);
}

TEST(ModuleTexts, the_walk_over_the_sources_finds_numbers_however_they_are_written_down) {
    const Texts texts = {{2050, L"a"}, {1421, L"b"}};
    EXPECT_EQ(numbersOfTexts(QStringLiteral("a = loadText(2050) + loadText( 2051 );  // never 2099\n"
                                            "constexpr EditMark kMark{.name = L\"A\", .titleText = 1422};\n"
                                            "{kGroup, nullptr, 2002}, constexpr unsigned kText = 2090;\n"
                                            "kMenuBefore = 1801; pi = 3.2045, 2046.5; kMany = 20501;"),
                             texts),
              (std::set<unsigned>{1422, 2002, 2050, 2051, 2090}));
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
