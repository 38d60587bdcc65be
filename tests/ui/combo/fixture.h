// A box on a shown window of a running application, and a count of its signals.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <functional>

#include "host/ui/recentcolors.h"
#include "host/win32/modules.h"
#include "kd/ui/comboboxes.h"
#include "kd/ui/widgets.h"
#include "tests/support/application.h"

namespace kdtest {

class BoxTest : public ApplicationTest {
protected:
    BoxTest() : combo(new KdUiComboBox), plain(new QWidget) {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(combo);
        layout->addWidget(plain);
        QObject::connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), &window, [this] {
            ++signalled;
            if (onChange) onChange();
        });
        window.show();
        window.activateWindow();
        combo->setFocus();
        kdhost::forgetRecentColors();
    }
    ~BoxTest() override {
        kdhost::setLanguage(kdhost::Language::English);
        kdhost::forgetRecentColors();
    }

    static std::wstring textOf(const CComboBox& box, int row) {
        CStdStr<wchar_t> text;
        box.GetLBText(row, text);
        return text;
    }
    /// Does something in the next modal dialog; it must have appeared by the end of `run`.
    void inDialog(const std::function<void(QWidget&)>& act, const std::function<void()>& run) {
        bool shown = false;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &window, [&] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr || shown) return;
            shown = true;
            watch.stop();
            act(*dialog);
        });
        watch.start(5);
        run();
        EXPECT_TRUE(shown) << "no dialog came";
    }
    /// Chooses a row as the user does: in the opened list, by a click.
    void pickInList(int row) {
        combo->showPopup();
        const QModelIndex index = combo->model()->index(row, 0);
        combo->view()->scrollTo(index);
        QTest::mouseMove(combo->view()->viewport(), combo->view()->visualRect(index).center());
        QTest::qWait(QApplication::doubleClickInterval() + 20);  // a click right after the opening does not count
        QTest::mouseClick(combo->view()->viewport(), Qt::LeftButton, {}, combo->view()->visualRect(index).center());
    }

    QWidget window;
    KdUiComboBox* combo;
    QWidget* plain;
    int signalled = 0;
    std::function<void()> onChange;
};

}  // namespace kdtest
