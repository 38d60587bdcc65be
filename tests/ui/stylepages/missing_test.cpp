// A widget tree that lacks a control: what the page tells, and that each other control of the page still writes.

#include <QAbstractButton>

#include "host/ui/dialogs/textstyles.h"
#include "tests/ui/style/borders.h"

namespace kdtest {
namespace {

/// A control, and what the page's refresh tells without it.
struct Missing {
    const char* name;
    StylePage page;
    int refresh;
};

/// A control that writes, and its use.
struct Use {
    const char* name;
    StylePage page;
    void (*act)(QWidget& dialog, const char* name);
};

void chooseLast(QWidget& dialog, const char* name) {
    auto& box = *dialog.findChild<QComboBox*>(QString::fromLatin1(name));
    box.setCurrentIndex(box.itemText(box.count() - 1).endsWith(QStringLiteral("...")) ? box.count() - 2
                                                                                      : box.count() - 1);
}
void enterThree(QWidget& dialog, const char* name) {
    auto& edit = *dialog.findChild<QLineEdit*>(QString::fromLatin1(name));
    edit.setFocus();
    edit.setText(QStringLiteral("3"));
    edit.clearFocus();
}
void click(QWidget& dialog, const char* name) {
    dialog.findChild<QAbstractButton*>(QString::fromLatin1(name))->click();
}

const Missing missingControls[] = {
    {"IDC_CELLSTYLEGENERAL_FILLCOLOR_COMBOBOX", GeneralPage, 1},
    {"IDC_CELLSTYLEGENERAL_ALIGNMENT_COMBOBOX", GeneralPage, 1},
    {"IDC_CELLSTYLEGENERAL_TYPE_COMBOBOX", GeneralPage, 0},
    {"IDC_CELLSTYLEGENERAL_FORMATSHOW_STATIC", GeneralPage, 1},
    {"IDC_CELLSTYLEGENERAL_FORMAT_BUTTON", GeneralPage, 1},
    {"IDC_CELLSTYLEGENERAL_HORIZONTAL_EDIT", GeneralPage, 1},
    {"IDC_CELLSTYLEGENERAL_VERTICAL_EDIT", GeneralPage, 1},
    {"IDC_CELLSTYLEGENERAL_MERGECELL_BUTTON", GeneralPage, 0},
    {"IDC_CELLSTYLETEXT_TEXTSTYLE_COMBOBOX", TextPage, 0},
    {"IDC_CELLSTYLETEXT_TEXTSTYLE_BUTTON", TextPage, 1},
    {"IDC_CELLSTYLETEXT_TEXTCOLOR_COMBOBOX", TextPage, 1},
    {"IDC_CELLSTYLETEXT_TEXTHEIGHT_EDIT", TextPage, 1},
    {"IDC_CELLSTYLETEXT_TEXTANGLE_EDIT", TextPage, 1},
    {kWeightBox, BorderPage, 1},
    {kTypeBox, BorderPage, 1},
    {kColorBox, BorderPage, 1},
    {kSpacing, BorderPage, 1},
    {kDouble, BorderPage, 0},
    {"IDC_CELLSTYLEBORDER_BORDERINFO_STATIC", BorderPage, 1},
    {kAll, BorderPage, 1},
    {kOuter, BorderPage, 1},
    {kInner, BorderPage, 1},
    {kBottom, BorderPage, 1},
    {kLeft, BorderPage, 1},
    {kTop, BorderPage, 1},
    {kRight, BorderPage, 1},
    {kNone, BorderPage, 1},
};

constexpr Use kUses[] = {
    {"IDC_CELLSTYLEGENERAL_FILLCOLOR_COMBOBOX", GeneralPage, chooseLast},
    {"IDC_CELLSTYLEGENERAL_ALIGNMENT_COMBOBOX", GeneralPage, chooseLast},
    {"IDC_CELLSTYLEGENERAL_TYPE_COMBOBOX", GeneralPage, chooseLast},
    {"IDC_CELLSTYLEGENERAL_HORIZONTAL_EDIT", GeneralPage, enterThree},
    {"IDC_CELLSTYLEGENERAL_VERTICAL_EDIT", GeneralPage, enterThree},
    {"IDC_CELLSTYLEGENERAL_MERGECELL_BUTTON", GeneralPage, click},
    {"IDC_CELLSTYLETEXT_TEXTSTYLE_COMBOBOX", TextPage, chooseLast},
    {"IDC_CELLSTYLETEXT_TEXTCOLOR_COMBOBOX", TextPage, chooseLast},
    {"IDC_CELLSTYLETEXT_TEXTHEIGHT_EDIT", TextPage, enterThree},
    {"IDC_CELLSTYLETEXT_TEXTANGLE_EDIT", TextPage, enterThree},
    {kAll, BorderPage, click},
    {kOuter, BorderPage, click},
    {kInner, BorderPage, click},
    {kBottom, BorderPage, click},
    {kLeft, BorderPage, click},
    {kTop, BorderPage, click},
    {kRight, BorderPage, click},
    {kNone, BorderPage, click},
};

void PrintTo(const Missing& missing, std::ostream* out) {
    *out << missing.name;
}

class StylePageMissing : public StyleEditing, public ::testing::WithParamInterface<Missing> {
protected:
    const Missing& missing = GetParam();

    /// Takes the control out of the tree that the dialog has just built.
    void removeControl() {
        for (QWidget* widget : QApplication::allWidgets()) {
            if (widget->objectName() != QLatin1String(missing.name)) continue;
            delete widget;
            return;
        }
        FAIL() << "no such control";
    }
    /// So that each button of borders has something to write.
    void setVisible(KdDb::Visibility visibility) {
        auto* open = getObject<KdDbTableStyle>(topTransaction(), styleId(), KdDb::kForWrite);
        for (const KdDb::GridLineType edge : kEdges) open->setGridVisibility(visibility, edge, L"_DATA");
    }
    bool writes(QWidget& dialog, const Use& use) {
        if (use.page == BorderPage) {
            setVisible(std::string_view(use.name) == kNone ? KdDb::kVisible : KdDb::kInvisible);
        }
        const nlohmann::json before = dump();
        use.act(dialog, use.name);
        return dump() != before;
    }
    CVqTableCellStylePage& page(QWidget& dialog) {
        for (const Missing& control : missingControls) {
            if (control.page != missing.page || std::string_view(control.name) == missing.name) continue;
            return dynamic_cast<CVqTableCellStylePage&>(*in<QWidget>(dialog, control.name).parentWidget());
        }
        throw std::runtime_error("no page");
    }
};

INSTANTIATE_TEST_SUITE_P(All, StylePageMissing, ::testing::ValuesIn(missingControls),
                         [](const auto& info) { return std::string(info.param.name).substr(4); });

TEST_P(StylePageMissing, The_refresh_tells_it_and_every_other_control_writes) {
    EXPECT_FALSE(kdhost::TextStyles(host.database()).create(L"Notes", L"Standard"));
    const nlohmann::json before = dump();
    transactions().startTransaction();
    CVqTableStyleEditDlg dialog(nullptr, 1);
    dialog.SetTableStyleId(styleId());
    removeControl();
    runModal(dialog, [&] {
        showPage(dialog, missing.page);
        EXPECT_EQ(page(dialog).UpdateFormDatabaseData(), missing.refresh);
        // The border page asks for the transaction behind its double line button.
        const bool hasTransaction = std::string_view(missing.name) != kDouble;
        for (const Use& use : kUses) {
            if (use.page != missing.page || std::string_view(use.name) == missing.name) continue;
            EXPECT_EQ(writes(dialog, use), hasTransaction) << use.name;
        }
        cancel(dialog);
    });
    transactions().abortTransaction();
    EXPECT_EQ(dump(), before);
}

}  // namespace
}  // namespace kdtest
