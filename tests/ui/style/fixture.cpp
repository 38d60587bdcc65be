// The steps of tests of the dialogs of styles, and their drawing.

#include "tests/ui/style/fixture.h"

#include <QApplication>
#include <QLabel>
#include <QTimer>

#include "host/ui/automation/automation.h"
#include "kd/db/dictionary.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "kd/ed/variables.h"
#include "module/core/tablestyles.h"

namespace kdtest {
namespace {

using kdhost::automation::topWindow;

std::string narrow(const std::wstring& text) {
    return QString::fromStdWString(text).toStdString();
}

/// A step that the automation takes; its answer is what was wrong.
Step step(std::function<std::wstring()> act) {
    return [act = std::move(act)] { EXPECT_EQ(narrow(act()), ""); };
}

/// Takes one step at each round of whatever loop runs innermost.
class Player : public QObject {
public:
    explicit Player(Steps steps) : m_steps(std::move(steps)) { goOn(); }
    ~Player() override { EXPECT_EQ(m_next, m_steps.size()) << "steps are left over"; }

private:
    void goOn() {
        QTimer::singleShot(0, this, [this] { take(); });
    }
    void take() {
        // What the platform still has to tell of windows, as of those that have just opened.
        QCoreApplication::processEvents();
        goOn();
        if (m_next < m_steps.size()) {
            m_steps[m_next++]();
        } else if (topWindow() != nullptr && topWindow()->isVisible() && kdhost::automation::isBlocked()) {
            ADD_FAILURE() << "still open: " << narrow(kdhost::automation::topWindowName());
            kdhost::automation::dismiss();
        }
    }

    Steps m_steps;
    std::size_t m_next = 0;
};

}  // namespace

Step click(const std::wstring& control, const std::wstring& place) {
    return step([=] { return kdhost::automation::click(control, place); });
}
Step doubleClick(const std::wstring& control, const std::wstring& place) {
    return step([=] { return kdhost::automation::doubleClick(control, place); });
}
Step context(const std::wstring& control, const std::wstring& place) {
    return step([=] { return kdhost::automation::context(control, place); });
}
Step choose(const std::wstring& control, const std::wstring& row) {
    return step([=] { return kdhost::automation::select(control, row); });
}
Step setText(const std::wstring& control, const std::wstring& text) {
    return step([=] { return kdhost::automation::set(control, text); });
}
Step key(const std::wstring& name) {
    return step([=] { return kdhost::automation::key(name); });
}
Step label(const std::wstring& text) {
    return step([=] { return kdhost::automation::label(text); });
}
Step menu(const std::wstring& item) {
    return step([=] { return kdhost::automation::menu(item); });
}
Step answer(const std::wstring& text, const std::wstring& button) {
    return step([=]() -> std::wstring {
        const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return L"no message box";
        EXPECT_EQ(narrow(box->text().toStdWString()), narrow(text));
        EXPECT_EQ(box->windowTitle().toStdWString(), GetOemProductName());
        return kdhost::automation::answer(button);
    });
}
Step expectBox(QMessageBox::Icon icon, QMessageBox::StandardButtons buttons) {
    return [=] {
        const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr) << "no message box";
        EXPECT_EQ(box->icon(), icon);
        EXPECT_EQ(box->standardButtons(), buttons);
    };
}
Step expect(const std::wstring& control, const std::wstring& property, const std::wstring& value) {
    return step([=] { return kdhost::automation::expect(control, property, value); });
}
Step expectFocus(const std::wstring& control) {
    return step([=] { return kdhost::automation::expectFocus(control); });
}
Step expectTop(const std::wstring& name) {
    return [=] {
        ASSERT_NE(topWindow(), nullptr);
        EXPECT_EQ(topWindow()->objectName().toStdWString(), name);
    };
}
Step expectTitle(const std::wstring& title) {
    return [=] {
        ASSERT_NE(topWindow(), nullptr);
        EXPECT_EQ(narrow(topWindow()->windowTitle().toStdWString()), narrow(title));
    };
}

int play(const std::function<int()>& modal, Steps steps) {
    const Player player(std::move(steps));
    return modal();
}

void StyleDialogTest::SetUp() {
    ModuleResources::SetUp();
    EXPECT_EQ(lineWeightDisplay(), 0);
}

void StyleDialogTest::TearDown() {
    EXPECT_EQ(lineWeightDisplay(), 0);
    ModuleResources::TearDown();
}

KdDbObjectId StyleDialogTest::addStyle(const std::wstring& name, const Names& cellStyles) {
    auto* made = new KdDbTableStyle;
    const OpenObject<KdDbTableStyle> standard(style(L"Standard"), KdDb::kForRead);
    made->copyFrom(standard.get());
    for (const std::wstring& cellStyle : cellStyles) {
        EXPECT_EQ(made->createCellStyle(cellStyle.c_str(), L"_DATA"), Kdad::eOk);
    }
    KdDbObjectId id;
    EXPECT_EQ(made->postTableStyleToDb(&drawing(), name.c_str(), id), Kdad::eOk);
    made->close();
    return id;
}

KdDbObjectId StyleDialogTest::style(const std::wstring& name) {
    return tableStyleNamed(&drawing(), name.c_str()).value_or(KdDbObjectId::kNull);
}

Names StyleDialogTest::styleNames() {
    Names names;
    const OpenObject<KdDbDictionary> styles(drawing().tableStyleDictionaryId(), KdDb::kForRead);
    const std::unique_ptr<KdDbDictionaryIterator> entry(styles->newIterator());
    for (; !entry->done(); entry->next()) names.emplace_back(entry->name());
    return names;
}

Names StyleDialogTest::cellStyleNames(const std::wstring& name) {
    KdArray<KdString> found;
    const OpenObject<KdDbTableStyle> open(style(name), KdDb::kForRead);
    if (open) open->getCellStyles(found);
    Names names;
    for (const KdString& each : found) names.emplace_back(each.kwszPtr());
    return names;
}

void StyleDialogTest::eraseStyle(const std::wstring& name) {
    const OpenObject<KdDbTableStyle> open(style(name), KdDb::kForWrite);
    EXPECT_EQ(open->erase(true), Kdad::eOk);
}

KdDbObjectId StyleDialogTest::addTable(const std::wstring& styleName, const std::wstring& cellStyle) {
    std::unique_ptr<KdDbTable> table = TableBuilder(3, 2).style(style(styleName)).build();
    table->setCellStyle(2, 1, cellStyle.c_str());
    KdDbObjectId id;
    const OpenObject<KdDbBlockTableRecord> space(drawing().modelSpaceId(), KdDb::kForWrite);
    EXPECT_EQ(space->appendKdDbEntity(id, table.get()), Kdad::eOk);
    table.release()->close();
    return id;
}

void StyleDialogTest::lockOnItsLayer(KdDbObjectId entity) {
    KdDbObjectId layer;
    auto* record = new KdDbLayerTableRecord;
    record->setName(L"Locked");
    const OpenObject<KdDbLayerTable> layers(drawing().layerTableId(), KdDb::kForWrite);
    EXPECT_EQ(layers->add(layer, record), Kdad::eOk);
    {
        const OpenObject<KdDbEntity> open(entity, KdDb::kForWrite);
        EXPECT_EQ(open->setLayer(layer), Kdad::eOk);
    }
    record->setIsLocked(true);
    record->close();
}

void StyleDialogTest::makeCurrent(const std::wstring& styleName) {
    drawing().setTablestyle(style(styleName));
}

std::wstring StyleDialogTest::currentStyle() {
    return currentTableStyleName();
}

int StyleDialogTest::lineWeightDisplay() {
    resbuf value;
    EXPECT_EQ(kdedGetVar(L"LWDISPLAY", &value), RTNORM);
    return value.resval.rint;
}

void StyleDialogTest::setLineWeightDisplay(short value) {
    resbuf buffer;
    buffer.restype = RTSHORT;
    buffer.resval.rint = value;
    EXPECT_EQ(kdedSetVar(L"LWDISPLAY", &buffer), RTNORM);
}

QListWidget& listIn(KdUiBaseDialog& dialog, const char* name) {
    auto* list = qobject_cast<QListWidget*>(dialog.getWidgetsFromOrignal(name));
    if (list == nullptr) throw std::runtime_error(std::string("no list ") + name);
    return *list;
}

Names rowsOf(const QListWidget& list) {
    Names rows;
    for (int row = 0; row < list.count(); ++row) rows.push_back(list.item(row)->text().toStdWString());
    return rows;
}

std::wstring selectedIn(const QListWidget& list) {
    const QList<QListWidgetItem*> selected = list.selectedItems();
    return selected.isEmpty() ? std::wstring() : selected.first()->text().toStdWString();
}

void expectList(const QListWidget& list, const Names& rows, const std::wstring& selected) {
    EXPECT_EQ(rowsOf(list), rows);
    EXPECT_EQ(selectedIn(list), selected);
}

std::wstring textOf(KdUiBaseDialog& dialog, const char* control) {
    CStdStr<wchar_t> text;
    if (CWnd* wnd = dialog.GetDlgItem(control)) wnd->GetWindowTextW(text);
    return text;
}

bool isEnabled(KdUiBaseDialog& dialog, const char* control) {
    const CWnd* wnd = dialog.GetDlgItem(control);
    return wnd != nullptr && wnd->IsWindowEnabled();
}

QImage pictureIn(KdUiBaseDialog& dialog, const char* control) {
    const auto* picture = qobject_cast<QLabel*>(dialog.getWidgetsFromOrignal(control));
    return picture == nullptr ? QImage() : picture->pixmap(Qt::ReturnByValue).toImage();
}

}  // namespace kdtest
