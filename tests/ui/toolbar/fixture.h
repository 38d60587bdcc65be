// What tests of the toolbar share: a drawing with tables, the toolbar over one of them, and real clicks on it.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <functional>
#include <set>
#include <stdexcept>
#include <string>

#include "host/ui/automation/automation.h"
#include "host/ui/recentcolors.h"
#include "host/win32/modules.h"
#include "kd/ed/resbuf.h"
#include "kd/ed/variables.h"
#include "kd/ui/widgets.h"
#include "module/edit/toolbar/tableditminiframewnd.h"
#include "tests/module/core/editfixture.h"
#include "tests/support/modalacts.h"
#include "tvx/exports.h"

namespace kdtest {

using Names = std::set<std::string>;

class ToolbarTest : public TableEdits {
protected:
    void TearDown() override {
        m_dialogs.expectAllCame();
        kdhost::faults() = {};
        setMode(0);
        kdhost::forgetRecentColors();
        kdhost::setLanguage(kdhost::Language::English);
        TableEdits::TearDown();
        EXPECT_EQ(window(), nullptr);
    }

    static void setMode(int mode) {
        resbuf value{};
        value.restype = RTSHORT;
        value.resval.rint = static_cast<short>(mode);
        EXPECT_EQ(kdedSetVar(L"TABLETOOLBAR", &value), RTNORM);
    }

    /// A table of that drawing's style with the selection, and the toolbar over it.
    KdDbObjectId addTable(TableBuilder& builder) { return add(builder.style(host.database().tablestyle())); }
    KdDbObjectId addTable(TableBuilder&& builder) { return addTable(builder); }
    KdDbObjectId showOver(TableBuilder& builder) {
        const KdDbObjectId id = addTable(builder);
        EXPECT_TRUE(showTableToolBar(id, true));
        return id;
    }
    KdDbObjectId showOver(TableBuilder&& builder) { return showOver(builder); }
    void lockLayerOf(KdDbObjectId id) {
        OpenObject<KdDbLayerTable> layers(host.database().layerTableId(), KdDb::kForWrite);
        auto* layer = new KdDbLayerTableRecord;
        layer->setName(L"Locked");
        KdDbObjectId layerId;
        EXPECT_EQ(layers->add(layerId, layer), Kdad::eOk);
        EXPECT_EQ(OpenObject<KdDbTable>(id, KdDb::kForWrite)->setLayer(layerId), Kdad::eOk);
        layer->setIsLocked(true);
        layer->close();
    }

    static CVqTableditMiniFrameWnd* window() { return GetTableditMiniFrameWnd(); }
    static bool isShown() { return window() != nullptr && window()->isVisible(); }

    template <class Control>
    static Control& control(const char* name) {
        auto* found = window()->findChild<Control*>(QString::fromLatin1(name));
        if (found == nullptr) throw std::runtime_error(std::string("no control ") + name);
        return *found;
    }
    static KdUiPushButton& button(const char* name) { return control<KdUiPushButton>(name); }
    static KdUiComboBox& combo(const char* name) { return control<KdUiComboBox>(name); }

    static void click(const char* name) { QTest::mouseClick(&button(name), Qt::LeftButton); }
    /// Presses the arrow part of the button, or the button itself where the menu is behind that, and acts on the menu.
    void dropAndAct(const char* name, const std::function<void(QMenu& menu)>& act, bool atArrow = true) {
        QTimer::singleShot(0, qApp, [act] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr) << "no menu opened";
            act(*menu);
            if (!menu->isVisible()) return;
            ADD_FAILURE() << "the menu stays open";
            menu->close();
        });
        KdUiPushButton& pressed = button(name);
        const QPoint place(atArrow ? pressed.width() - 3 : 5, pressed.height() / 2);
        QTest::mouseClick(&pressed, Qt::LeftButton, Qt::NoModifier, place);
    }
    void choose(const char* name, const std::string& item, bool atArrow = true) {
        dropAndAct(
            name, [&](QMenu&) { EXPECT_EQ(kdhost::automation::menu(std::wstring(item.begin(), item.end())), L""); },
            atArrow);
    }
    /// Chooses a row as a user does.
    static void chooseRow(const char* name, const std::wstring& row) {
        EXPECT_EQ(kdhost::automation::select(QString::fromLatin1(name).toStdWString(), row), L"");
    }

    /// Names without "IDC_TABLEDIT_".
    static Names enabled() {
        Names names;
        for (const ToolbarRow& row : kToolbarRows) {
            if (row.name != nullptr && control<QWidget>(row.name).isEnabled()) {
                names.insert(std::string(row.name).substr(std::string("IDC_TABLEDIT_").size()));
            }
        }
        return names;
    }
    static Names allBut(const Names& disabled) {
        Names names = {"TOPINSERT",    "BOTTOMINSERT", "ROWDELETE",   "LEFTINSERT", "RIGHTINSERT",
                       "COLUMNDELETE", "MERGECELL",    "UNMERGECELL", "COLORCOMBO", "CELLBORDER",
                       "ALIGNMENT",    "LOCKING",      "DATAFORMAT",  "FORMULA",    "CELLSTYLECOMBO"};
        for (const std::string& name : disabled) names.erase(name);
        return names;
    }

    /// Acts on the modal dialog that comes next.
    void next(ModalActs::Act act) { m_dialogs.next(std::move(act)); }

private:
    ModalActs m_dialogs;
};

}  // namespace kdtest
