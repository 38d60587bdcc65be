// The dialog of a block in a cell for tests: a table with blocks in a drawing, and the dialog by real widgets.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "kd/db/database.h"
#include "module/edit/celledit.h"
#include "module/edit/cellinsertblockdlg.h"
#include "tests/module/core/editfixture.h"
#include "tests/support/modalacts.h"
#include "tests/ui/module/fixture.h"

namespace kdtest {

inline constexpr const char* kBlockScale = "IDC_CELLINSERTBLOCK_SCALE_EDIT";
inline constexpr const char* kBlockAngle = "IDC_CELLINSERTBLOCK_ANGLE_EDIT";
inline constexpr const char* kBlockPath = "IDC_CELLINSERTBLOCK_PATHNAME_STATIC";
inline constexpr const char* kBlockAlignment = "IDC_CELLINSERTBLOCK_ALIGNMENT_COMBOBOX";
inline constexpr const char* kBlockAutofit = "IDC_CELLINSERTBLOCK_AUTOFIT_BUTTON";

class BlockDialogTest : public TableEdits {
protected:
    void SetUp() override {
        TableEdits::SetUp();
        m_kept = AfxGetResourceHandle();
        AfxSetResourceHandle(hLibModule);
    }
    void TearDown() override {
        m_dialogs.expectAllCame();
        AfxSetResourceHandle(m_kept);
        TableEdits::TearDown();
    }

    using Act = std::function<void(QWidget& dialog)>;

    /// Acts in the dialog that comes next; what is left open is cancelled.
    void next(const Act& act) {
        m_dialogs.next([act](QWidget& dialog) {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            act(dialog);
            if (dialog.isVisible()) press(dialog, "IDCANCEL");
        });
    }
    template <class Control>
    static Control& in(QWidget& dialog, const char* name) {
        auto* control = dialog.findChild<Control*>(QLatin1String(name));
        if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
        return *control;
    }
    static void press(QWidget& dialog, const char* name) {
        QTest::mouseClick(&in<QPushButton>(dialog, name), Qt::LeftButton);
    }
    /// Types into an edit and leaves it by Tab.
    static void enter(QWidget& dialog, const char* name, const char* text) {
        retype(in<QLineEdit>(dialog, name), QString::fromUtf8(text));
        pressKey(Qt::Key_Tab);
        EXPECT_NE(focusName(), name) << "nothing keeps the focus";
    }
    static std::string text(QWidget& dialog, const char* name) {
        return in<QLineEdit>(dialog, name).text().toStdString();
    }
    KdDbObjectId addBlock(const wchar_t* name) {
        auto* record = new KdDbBlockTableRecord;
        record->setName(name);
        KdDbObjectId id;
        const OpenObject<KdDbBlockTable> blocks(host.database().blockTableId(), KdDb::kForWrite);
        EXPECT_EQ(blocks->add(id, record), Kdad::eOk);
        record->close();
        return id;
    }

private:
    ModalActs m_dialogs;
    HINSTANCE m_kept = nullptr;
};

}  // namespace kdtest
