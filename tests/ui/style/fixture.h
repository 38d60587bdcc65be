// What tests of the dialogs of styles share: a drawing with table styles and tables, and steps that a person takes in
// one dialog after another, by real events.
#pragma once

#include <gtest/gtest.h>

#include <QListWidget>
#include <QMessageBox>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "kd/db/database.h"
#include "kd/db/tablestyle.h"
#include "kd/db/transaction.h"
#include "module/core/openobject.h"
#include "tests/support/application.h"
#include "tests/support/tablebuilder.h"
#include "tests/ui/module/fixture.h"

namespace kdtest {

using Names = std::vector<std::wstring>;
using Step = std::function<void()>;
using Steps = std::vector<Step>;

// The steps. Each fails the test when it can't be taken.

Step click(const std::wstring& control, const std::wstring& place = {});
Step doubleClick(const std::wstring& control, const std::wstring& place);
Step context(const std::wstring& control, const std::wstring& place);
Step choose(const std::wstring& control, const std::wstring& row);
Step setText(const std::wstring& control, const std::wstring& text);
Step key(const std::wstring& name);
/// Ends the label that is edited; "CANCEL" gives it up.
Step label(const std::wstring& text);
Step menu(const std::wstring& item);
/// Answers the message box, whose text must be that.
Step answer(const std::wstring& text, const std::wstring& button);
/// That a message box is open with that icon and those buttons.
Step expectBox(QMessageBox::Icon icon, QMessageBox::StandardButtons buttons);
/// That a control of the top dialog is, or isn't, enabled, checked, visible, or shows a text.
Step expect(const std::wstring& control, const std::wstring& property, const std::wstring& value);
Step expectFocus(const std::wstring& control);
/// That the top window is the one of that name.
Step expectTop(const std::wstring& name);
/// That the top window has that title.
Step expectTitle(const std::wstring& title);

/// Runs `modal`, and the steps within its loops, one after the other. Steps that are left over at its end fail the
/// test, and so does a dialog that is open after the last step; it is then dismissed.
int play(const std::function<int()>& modal, Steps steps);

class StyleDialogTest : public ModuleResources {
protected:
    void SetUp() override;
    /// "LWDISPLAY" is what SetUp made it, whatever the test did.
    void TearDown() override;

    KdDbDatabase& drawing() { return host.database(); }
    KdDbTransactionManager& transactions() { return *host.document().transactionManager(); }

    /// A style like "Standard", with the cell styles of users.
    KdDbObjectId addStyle(const std::wstring& name, const Names& cellStyles = {});
    KdDbObjectId style(const std::wstring& name);
    Names styleNames();
    /// Display names are not translated: as the style has them.
    Names cellStyleNames(const std::wstring& style);
    void eraseStyle(const std::wstring& name);

    KdDbObjectId addTable(const std::wstring& style, const std::wstring& cellStyle = L"_DATA");
    /// Puts an entity on a layer of its own, which is then locked.
    void lockOnItsLayer(KdDbObjectId entity);

    void makeCurrent(const std::wstring& style);
    static std::wstring currentStyle();
    static int lineWeightDisplay();
    static void setLineWeightDisplay(short value);

    HostApplication host;
};

QListWidget& listIn(KdUiBaseDialog& dialog, const char* name);
Names rowsOf(const QListWidget& list);
/// Text of the selected row; empty when none is.
std::wstring selectedIn(const QListWidget& list);
void expectList(const QListWidget& list, const Names& rows, const std::wstring& selected);
std::wstring textOf(KdUiBaseDialog& dialog, const char* control);
bool isEnabled(KdUiBaseDialog& dialog, const char* control);
/// The picture that a preview shows; null for none.
QImage pictureIn(KdUiBaseDialog& dialog, const char* control);

}  // namespace kdtest
