// Resource modules: loading, freeing and the texts, on the table module's own resource module.

#include "host/win32/modules.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <QFile>
#include <cwchar>
#include <string>

#include "host/rx/faults.h"
#include "host/win32/texttable.h"
#include "kd/rx/kdstring.h"
#include "tests/support/places.h"

namespace {

constexpr const wchar_t* kName = L"TvxTableRes.dll";

bool isMapped() {
    void* const library = ::dlopen(kdtest::builtFile("plugins/TvxTableRes.dll").c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (library == nullptr) return false;
    ::dlclose(library);
    return true;
}

bool hasResources() {
    return QFile::exists(QStringLiteral(":/TvxTableRes/strings/en.tsv"));
}

class ResourceModule : public ::testing::Test {
protected:
    void SetUp() override {
        m_module = LoadResourceDll(kName);
        ASSERT_NE(m_module, nullptr);
    }
    void TearDown() override {
        kdhost::setLanguage(kdhost::Language::English);
        EXPECT_NE(FreeLibrary(m_module), 0);
    }

    std::wstring text(unsigned number) {
        KdString loaded;
        loaded.loadString(m_module, number);
        return loaded.str();
    }

    HINSTANCE m_module = nullptr;
};

}  // namespace

TEST(ResourceModules, the_last_free_unmaps_the_module_and_takes_its_resources_away) {
    ASSERT_FALSE(isMapped());
    for (int round = 0; round < 3; ++round) {
        const HINSTANCE first = LoadResourceDll(kName);
        const HINSTANCE second = LoadResourceDll(kName);
        EXPECT_NE(first, nullptr);
        EXPECT_EQ(first, second);
        wchar_t buffer[32];
        EXPECT_EQ(LoadStringW(first, 2005, buffer, 32), 5);
        EXPECT_NE(FreeLibrary(first), 0);
        EXPECT_TRUE(isMapped());
        EXPECT_TRUE(hasResources());
        EXPECT_EQ(LoadStringW(second, 2005, buffer, 32), 5);
        EXPECT_NE(FreeLibrary(second), 0);
        EXPECT_FALSE(isMapped());
        EXPECT_FALSE(hasResources());
        EXPECT_EQ(FreeLibrary(second), 0);
        EXPECT_EQ(LoadStringW(second, 2005, buffer, 32), 0);
    }
}

TEST(ResourceModules, what_is_no_module_gives_null) {
    EXPECT_EQ(LoadResourceDll(nullptr), nullptr);
    EXPECT_EQ(LoadResourceDll(L""), nullptr);
    EXPECT_EQ(LoadResourceDll(L"NoSuch.dll"), nullptr);
    EXPECT_EQ(LoadResourceDll(L"/etc/hostname"), nullptr);
    EXPECT_EQ(FreeLibrary(nullptr), 0);
    int other = 0;
    EXPECT_EQ(FreeLibrary(reinterpret_cast<HINSTANCE>(&other)), 0);
}

TEST(ResourceModules, the_fault_makes_every_resource_module_missing) {
    kdhost::faults().noResourceModule = true;
    EXPECT_EQ(LoadResourceDll(kName), nullptr);
    kdhost::faults().noResourceModule = false;
    const HINSTANCE module = LoadResourceDll(kName);
    EXPECT_NE(module, nullptr);
    FreeLibrary(module);
}

TEST(ResourceModules, a_library_without_texts_loads_and_has_none) {
    const HINSTANCE module = LoadResourceDll(kdtest::builtPath("test_plugins/LinkerProbe.tvx").toStdWString().c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(kdhost::moduleText(module, 2005), nullptr);
    EXPECT_NE(FreeLibrary(module), 0);
}

TEST(ResourceModules, a_name_without_a_folder_lies_in_the_folder_of_plugins_and_nowhere_else) {
    const std::string folder = kdhost::pluginFolder();
    kdhost::setPluginFolder("/somewhere");
    EXPECT_EQ(kdhost::pluginPath("A.dll"), "/somewhere/A.dll");
    EXPECT_EQ(kdhost::pluginPath("/else/A.dll"), "/else/A.dll");
    EXPECT_EQ(kdhost::pluginPath("./A.dll"), "./A.dll");
    EXPECT_EQ(LoadResourceDll(kName), nullptr);
    kdhost::setPluginFolder("");
    EXPECT_EQ(kdhost::pluginPath("A.dll"), "./A.dll");
    kdhost::setPluginFolder(folder);
    EXPECT_EQ(kdhost::fileNameOf(L"/a/b.dll"), L"b.dll");
    EXPECT_EQ(kdhost::fileNameOf(L"b.dll"), L"b.dll");
}

TEST(ResourceModules, the_product_has_no_prefix) {
    wchar_t buffer[1024] = L"before";
    EXPECT_EQ(GetKdadProductPreName(buffer), 0);
    EXPECT_STREQ(buffer, L"");
    EXPECT_EQ(GetKdadProductPreName(nullptr), 0);
}

TEST_F(ResourceModule, is_known_by_its_file_name_without_the_ending) {
    EXPECT_EQ(kdhost::moduleResourceName(m_module), L"TvxTableRes");
    EXPECT_EQ(kdhost::moduleResourceName(nullptr), L"");
}

TEST_F(ResourceModule, texts_come_in_the_hosts_language) {
    EXPECT_EQ(text(2037), L"Data");
    kdhost::setLanguage(kdhost::Language::Chinese);
    EXPECT_EQ(kdhost::language(), kdhost::Language::Chinese);
    EXPECT_EQ(text(2037), L"数据");
    kdhost::setLanguage(kdhost::Language::English);
    EXPECT_EQ(text(2037), L"Data");
}

TEST_F(ResourceModule, a_text_is_cut_to_the_buffer_and_always_ended) {
    const struct {
        int length;
        int result;
        const wchar_t* text;
    } rows[] = {{64, 10, L"TABLESTYLE"}, {11, 10, L"TABLESTYLE"}, {10, 9, L"TABLESTYL"}, {2, 1, L"T"}, {1, 0, L""}};
    for (const auto& row : rows) {
        wchar_t buffer[64];
        std::wmemset(buffer, L'#', 64);
        EXPECT_EQ(LoadStringW(m_module, 2002, buffer, row.length), row.result);
        EXPECT_STREQ(buffer, row.text);
        EXPECT_EQ(buffer[63], L'#');
    }
}

TEST_F(ResourceModule, a_missing_text_leaves_the_buffer_as_it_was) {
    wchar_t buffer[16] = L"before";
    EXPECT_EQ(LoadStringW(m_module, 1, buffer, 16), 0);
    EXPECT_EQ(LoadStringW(nullptr, 2002, buffer, 16), 0);
    EXPECT_EQ(LoadStringW(m_module, 2002, buffer, 0), 0);
    EXPECT_EQ(LoadStringW(m_module, 2002, buffer, -1), 0);
    EXPECT_EQ(LoadStringW(m_module, 2002, nullptr, 16), 0);
    EXPECT_STREQ(buffer, L"before");
    KdString missing(L"before");
    EXPECT_FALSE(missing.loadString(m_module, 1));
    EXPECT_TRUE(missing.isEmpty());
}

TEST(TextTable, is_lines_of_a_number_a_tab_and_a_text) {
    const kdhost::TextTable table = kdhost::parseTextTable(
        "1\tone\n"
        "2\ttwo\twith a tab\r\n"
        "# a comment\n"
        "\n"
        "3\n"
        "4\t\n"
        "x\ttext\n"
        "5 \ttext\n"
        "1\tagain\n"
        "6\t \xE4\xB8\xAD ");
    EXPECT_EQ(table, (kdhost::TextTable{{1, L"one"}, {2, L"two\twith a tab"}, {6, L" 中 "}}));
    EXPECT_TRUE(kdhost::parseTextTable("").empty());
}

TEST(TextTable, escapes_stand_for_line_feed_tab_and_backslash_and_others_for_themselves) {
    const kdhost::TextTable table = kdhost::parseTextTable("1\ta\\nb\\tc\\\\n\\x\\");
    EXPECT_EQ(table.at(1), L"a\nb\tc\\n\\x\\");
}
