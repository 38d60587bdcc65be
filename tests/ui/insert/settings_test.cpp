// What the insert dialog remembers: how it is stored, read, converted and kept from Cancel.

#include <cstring>
#include <limits>

#include "host/rx/faults.h"
#include "kd/db/database.h"
#include "tests/ui/insert/fixture.h"
#include "win32/registry.h"

namespace kdtest {
namespace {

constexpr const wchar_t* kRoot = L"Software\\KdHost\\Profiles\\Default";
const std::wstring kKey = std::wstring(kRoot) + L"\\InitSetting\\Dialog\\VqTable:Table";

bool exists(const std::wstring& path) {
    HKEY opened = nullptr;
    const LSTATUS status = RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &opened);
    if (status == ERROR_SUCCESS) RegCloseKey(opened);
    return status == ERROR_SUCCESS;
}

class InsertDialogSettings : public InsertDialogTest {
protected:
    void accept() {
        EXPECT_EQ(open([&] { press("IDOK"); }), 1);
    }
    void storeAll(int options, int columns, int rows, int height, int window, int metric, double width) const {
        store(L"AutoOptions", options);
        store(L"Columns", columns);
        store(L"Rows", rows);
        store(L"RowHeight", height);
        store(L"WindowToFit", window);
        store(L"Metric", metric);
        store(L"ColumnWidth", width);
    }
    static void expectStored(int options, int columns, int rows, int height, int window, int metric, double width) {
        EXPECT_EQ(stored(L"AutoOptions"), options);
        EXPECT_EQ(stored(L"Columns"), columns);
        EXPECT_EQ(stored(L"Rows"), rows);
        EXPECT_EQ(stored(L"RowHeight"), height);
        EXPECT_EQ(stored(L"WindowToFit"), window);
        EXPECT_EQ(stored(L"Metric"), metric);
        EXPECT_DOUBLE_EQ(storedWidth(), width);
        EXPECT_EQ(stored(L"IndicatorColor"), 0);
    }
};

TEST_F(InsertDialogSettings, The_first_opening_stores_the_defaults) {
    EXPECT_FALSE(exists(kKey));
    open([] {});
    expectStored(10, 3, 3, 1, 0, 1, 63.5);
}

TEST_F(InsertDialogSettings, The_defaults_of_a_drawing_that_is_not_metric_are_in_its_units) {
    drawing().setMeasurement(0);
    open([&] { EXPECT_EQ(shown(kWidthEdit), length(2.5)); });
    expectStored(10, 3, 3, 1, 0, 0, 2.5);
}

TEST_F(InsertDialogSettings, Whatever_level_of_the_key_is_missing_is_made_and_gets_the_defaults) {
    for (const wchar_t* level : {L"", L"\\InitSetting", L"\\InitSetting\\Dialog"}) {
        const ConfigFolder own;
        HKEY made = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, (std::wstring(kRoot) + level).c_str(), 0, nullptr, 0, KEY_READ,
                                  nullptr, &made, nullptr),
                  ERROR_SUCCESS);
        RegCloseKey(made);
        open([&] { EXPECT_EQ(figures(), (Names{L"3", length(63.5), L"3", L"1"})); });
        EXPECT_TRUE(exists(kKey)) << std::wstring(level);
        expectStored(10, 3, 3, 1, 0, 1, 63.5);
    }
}

TEST_F(InsertDialogSettings, OK_stores_what_the_dialog_shows_and_the_next_opening_shows_it) {
    open([&] {
        put(kColumnsEdit, L"5");
        put(kRowsEdit, L"8");
        put(kHeightEdit, L"2");
        put(kWidthEdit, L"40.25");
        leaveTo("IDOK");
        press("IDOK");
    });
    expectStored(10, 5, 8, 2, 0, 1, 40.25);
    open([&] { EXPECT_EQ(figures(), (Names{L"5", length(40.25), L"8", L"2"})); });
}

TEST_F(InsertDialogSettings, Each_choice_of_what_is_fixed_has_its_number) {
    struct Choice {
        const char* columns;
        const char* rows;
        int stored;
        Names shown;
    };
    const std::wstring width = length(63.5);
    const Choice choices[] = {
        {kColumnsRadio, kRowsRadio, 10, {L"3", L"Auto", L"3", L"Auto"}},
        {kWidthRadio, kRowsRadio, 9, {L"Auto", width, L"3", L"Auto"}},
        {kColumnsRadio, kHeightRadio, 6, {L"3", L"Auto", L"Auto", L"1"}},
        {kWidthRadio, kHeightRadio, 5, {L"Auto", width, L"Auto", L"1"}},
    };
    for (const Choice& choice : choices) {
        open([&] {
            press(kWindowRadio);
            press(choice.columns);
            press(choice.rows);
            press("IDOK");
        });
        expectStored(choice.stored, 3, 3, 1, 1, 1, 63.5);
        open([&] {
            EXPECT_TRUE(isChecked(kWindowRadio)) << choice.stored;
            EXPECT_TRUE(isChecked(choice.columns)) << choice.stored;
            EXPECT_TRUE(isChecked(choice.rows)) << choice.stored;
            EXPECT_EQ(figures(), choice.shown) << choice.stored;
        });
    }
}

TEST_F(InsertDialogSettings, Another_number_leaves_both_unfixed_as_a_new_dialog_has_them) {
    for (const int other : {7, 0, -1, 11}) {
        storeAll(other, 4, 5, 2, 1, 1, 30.0);
        open([&] {
            EXPECT_TRUE(isChecked(kWidthRadio)) << other;
            EXPECT_TRUE(isChecked(kHeightRadio)) << other;
            EXPECT_EQ(figures(), (Names{L"Auto", length(30.0), L"Auto", L"2"})) << other;
        });
        EXPECT_EQ(stored(L"AutoOptions"), other) << "nor does the opening store anything";
    }
    accept();
    EXPECT_EQ(stored(L"AutoOptions"), 5);
}

TEST_F(InsertDialogSettings, Any_number_but_0_stands_for_the_window) {
    for (const int window : {0, 1, 2, 7, -1}) {
        storeAll(10, 4, 5, 2, window, 1, 30.0);
        open([&] {
            EXPECT_EQ(isChecked(kWindowRadio), window != 0) << window;
            EXPECT_EQ(isChecked(kPointRadio), window == 0) << window;
        });
    }
}

TEST_F(InsertDialogSettings, A_stored_width_that_is_not_finite_comes_back_as_0) {
    storeAll(10, 4, 5, 2, 0, 1, std::numeric_limits<double>::infinity());
    open([&] { EXPECT_EQ(shown(kWidthEdit), length(0.0)); });
}

TEST_F(InsertDialogSettings, Cancel_stores_nothing_however_it_is_said) {
    storeAll(9, 4, 5, 2, 1, 1, 30.0);
    const QByteArray before = config.registryText();
    const auto change = [&] {
        press(kPointRadio);
        put(kColumnsEdit, L"7");
        leaveTo(kWidthEdit);
        put(kWidthEdit, L"12");
        leaveTo(kRowsEdit);
    };
    EXPECT_EQ(open([&] {
                  change();
                  press("IDCANCEL");
              }),
              2);
    EXPECT_EQ(open([&] {
                  change();
                  pressKey(Qt::Key_Escape);
              }),
              2);
    EXPECT_EQ(open([&] {
                  change();
                  dialog->close();
              }),
              2);
    EXPECT_EQ(config.registryText(), before);
}

TEST_F(InsertDialogSettings, Widths_are_converted_between_metric_drawings_and_others) {
    struct Case {
        int measurement;
        int metric;
        double stored;
        double shown;
    };
    const Case cases[] = {{1, 1, 30.0, 30.0}, {1, 0, 2.5, 63.5}, {0, 1, 63.5, 2.5},
                          {0, 0, 2.5, 2.5},   {1, 7, 2.5, 63.5}, {0, 7, 2.5, 2.5}};
    for (const Case& each : cases) {
        drawing().setMeasurement(each.measurement);
        storeAll(10, 3, 3, 1, 0, each.metric, each.stored);
        open([&] { EXPECT_EQ(shown(kWidthEdit), length(each.shown)) << each.measurement << each.metric; });
        accept();
        EXPECT_EQ(stored(L"Metric"), each.measurement);
        EXPECT_DOUBLE_EQ(storedWidth(), each.shown);
    }
}

TEST_F(InsertDialogSettings, A_width_is_eight_raw_bytes_and_a_number_is_four) {
    open([] {});
    HKEY opened = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, kKey.c_str(), 0, KEY_READ, &opened), ERROR_SUCCESS);
    const auto bytesOf = [&](const wchar_t* name) {
        BYTE bytes[16] = {};
        DWORD size = sizeof bytes;
        EXPECT_EQ(RegQueryValueExW(opened, name, nullptr, nullptr, bytes, &size), ERROR_SUCCESS);
        return std::vector<BYTE>(bytes, bytes + size);
    };
    const auto rawOf = [](auto value) {
        std::vector<BYTE> bytes(sizeof value);
        std::memcpy(bytes.data(), &value, sizeof value);
        return bytes;
    };
    EXPECT_EQ(bytesOf(L"ColumnWidth"), rawOf(63.5));
    EXPECT_EQ(bytesOf(L"Columns"), rawOf(std::int32_t{3}));
    EXPECT_EQ(bytesOf(L"IndicatorColor"), rawOf(std::int32_t{0}));
    RegCloseKey(opened);
}

TEST_F(InsertDialogSettings, Values_that_cannot_be_read_leave_their_fields_as_they_were) {
    store(L"AutoOptions", 10);
    store(L"Columns", 1.5);
    open([&] {
        EXPECT_TRUE(isChecked(kWindowRadio)) << "a new dialog is in window mode";
        press(kPointRadio);
        // The edits have no number below 1, and an empty width counts as 1.
        EXPECT_EQ(figures(), (Names{L"1", length(1.0), L"1", L"1"}));
    });
}

TEST_F(InsertDialogSettings, Without_what_is_fixed_all_values_are_the_defaults) {
    store(L"Columns", 9);
    store(L"WindowToFit", 1);
    open([&] {
        EXPECT_TRUE(isChecked(kPointRadio));
        EXPECT_EQ(figures(), (Names{L"3", length(63.5), L"3", L"1"}));
    });
    expectStored(10, 3, 3, 1, 0, 1, 63.5);
}

TEST_F(InsertDialogSettings, Numbers_beyond_the_edits_come_into_their_range) {
    storeAll(10, 0, -4, 40000, 0, 1, 30.0);
    open([&] { EXPECT_EQ(figures(), (Names{L"1", length(30.0), L"1", L"32767"})); });
}

TEST_F(InsertDialogSettings, A_store_that_cannot_be_written_gives_the_defaults_and_keeps_what_it_holds) {
    storeAll(9, 4, 5, 2, 1, 1, 30.0);
    const QByteArray before = config.registryText();
    config.makeReadOnly();
    const PlainUser user;
    open([&] {
        EXPECT_EQ(figures(), (Names{L"3", length(63.5), L"3", L"1"}));
        press("IDOK");
    });
    EXPECT_EQ(config.registryText(), before);
}

TEST_F(InsertDialogSettings, Without_a_jig_OK_closes_and_stores_nothing) {
    storeAll(10, 4, 5, 2, 0, 1, 30.0);
    const QByteArray before = config.registryText();
    dialog = std::make_unique<CVqTableInsertDlg>();
    dialog->SetDatabase(&drawing());
    EXPECT_EQ(runModal(*dialog,
                       [&] {
                           put(kColumnsEdit, L"7");
                           leaveTo("IDOK");
                           press("IDOK");
                       }),
              1);
    EXPECT_EQ(config.registryText(), before);
}

TEST_F(InsertDialogSettings, Numbers_behind_automatic_figures_are_stored_too) {
    open([&] {
        put(kColumnsEdit, L"6");
        leaveTo(kHeightEdit);
        put(kHeightEdit, L"3");
        press(kWindowRadio);
        press(kWidthRadio);
        press("IDOK");
    });
    expectStored(9, 6, 3, 3, 1, 1, 63.5);
}

}  // namespace
}  // namespace kdtest
