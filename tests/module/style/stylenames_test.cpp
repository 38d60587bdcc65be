// Which names a style may have, and the operations on controls that leave everything as it is.

#include <gtest/gtest.h>

#include "kd/ui/basedialog.h"
#include "module/controls/dlgctrlstrans.h"
#include "module/core/tablecommon.h"

namespace kdtest {
namespace {

TEST(StyleNames, Just_fourteen_characters_make_a_name_invalid) {
    const std::wstring refused = L"<>/\\\":;?*|,=`'";
    ASSERT_EQ(refused.size(), 14U);
    for (wchar_t c = 1; c < 0x3000; ++c) {
        const bool valid = refused.find(c) == std::wstring::npos;
        EXPECT_EQ(CVqTableCommon::CheckStyleNameValid(std::wstring{L'a', c, L'b'}), valid) << static_cast<int>(c);
    }
}

TEST(StyleNames, A_refused_character_counts_wherever_it_stands) {
    EXPECT_FALSE(CVqTableCommon::CheckStyleNameValid(L"*a"));
    EXPECT_FALSE(CVqTableCommon::CheckStyleNameValid(L"a*"));
    EXPECT_FALSE(CVqTableCommon::CheckStyleNameValid(L"*"));
}

TEST(StyleNames, An_empty_name_and_one_with_a_tilde_pass) {
    EXPECT_TRUE(CVqTableCommon::CheckStyleNameValid(L""));
    EXPECT_TRUE(CVqTableCommon::CheckStyleNameValid(L"a~b"));
}

TEST(DialogControls, Moving_and_stretching_only_ask_for_a_dialog_and_a_list) {
    KdUiBaseDialog dialog;
    dialog.resize(120, 80);
    const UINT controls[] = {1, 2};
    using Operation = bool (*)(const KdUiBaseDialog*, const UINT*, int, int, int);
    for (const Operation move : {CVqDlgCtrlsTrans::Move, CVqDlgCtrlsTrans::Stretch, CVqDlgCtrlsTrans::MoveAndStretch}) {
        EXPECT_TRUE(move(&dialog, controls, 2, 10, 10));
        EXPECT_FALSE(move(nullptr, controls, 2, 10, 10));
        EXPECT_FALSE(move(&dialog, nullptr, 2, 10, 10));
    }
    using Status = bool (*)(const KdUiBaseDialog*, const UINT*, int, int);
    for (const Status set : {CVqDlgCtrlsTrans::SetVisualStatus, CVqDlgCtrlsTrans::SetEnableStatus}) {
        EXPECT_TRUE(set(&dialog, controls, 2, 0));
        EXPECT_FALSE(set(nullptr, controls, 2, 0));
        EXPECT_FALSE(set(&dialog, nullptr, 2, 0));
    }
    for (const auto lock : {CVqDlgCtrlsTrans::LockDlgSize, CVqDlgCtrlsTrans::UnlockDlgSize}) {
        EXPECT_TRUE(lock(&dialog));
        EXPECT_FALSE(lock(nullptr));
    }
    EXPECT_EQ(dialog.size(), QSize(120, 80));
}

}  // namespace
}  // namespace kdtest
