// Dialogs of the tests of the base layer: a tree of the tests' own, and a record of what reached the dialog.
#pragma once

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <string>
#include <vector>

#include "kd/ui/basedialog.h"
#include "kd/ui/widgets.h"

namespace kdtest {

/// Writes down what its virtual operations are called with; `script` decides what they answer.
class RecordingDialog : public KdUiBaseDialog {
public:
    explicit RecordingDialog(const char* tree = "BASE_ALL", CWnd* parent = nullptr) : KdUiBaseDialog(parent) {
        built = generateUICtrls("KdUiTests", tree);
        if (built) KdUiBaseDialog::bindSingals();
    }

    template <class T>
    T& control(const char* name) const {
        auto* found = qobject_cast<T*>(getWidgetsFromOrignal(name));
        if (found == nullptr) throw std::runtime_error(std::string("no such control: ") + name);
        return *found;
    }

    /// Shown without a loop of its own, with the focus in it.
    void open() override {
        show();
        QApplication::setActiveWindow(this);
        QApplication::processEvents();
    }

    /// Writes `text` down at each signal of that control.
    void record(const char* name, const char* signal, const std::string& text) {
        if (!connectControl(name, signal, [this, text] { log.push_back(text); })) throw std::runtime_error(text);
    }

    std::vector<std::string> take() { return std::exchange(log, {}); }

    int OnInitDialog() override {
        log.push_back("init");
        const int shown = KdUiBaseDialog::OnInitDialog();
        if (onInit) onInit();
        return shown;
    }
    void OnOK() override {
        log.push_back("OnOK");
        KdUiBaseDialog::OnOK();
    }
    void OnCancel() override {
        log.push_back("OnCancel");
        KdUiBaseDialog::OnCancel();
    }
    void OnDestroy() override { log.push_back("OnDestroy"); }
    void OnHelp() override { log.push_back("OnHelp"); }
    int OnMouseWheel(int delta) override {
        log.push_back("wheel " + std::to_string(delta));
        return 1;
    }
    bool PreTranslateMessage(MSG* message) override {
        keys.push_back(message->hwnd->objectName().toStdString() + " " + std::to_string(message->wParam));
        return swallowedKey != 0 && message->wParam == swallowedKey;
    }
    void OnListNotify(const char* name, NMHDR* header, LRESULT* result) override {
        log.push_back(std::string(name) + " " + describe(*header));
        if (answer) *result = answer(*header);
    }
    void DoDataExchange(CDataExchange* exchange) override {
        if (exchangeData) exchangeData(exchange);
    }

    bool built = false;
    std::vector<std::string> log;
    std::vector<std::string> keys;
    WPARAM swallowedKey = 0;
    std::function<void()> onInit;
    std::function<LRESULT(const NMHDR&)> answer;
    std::function<void(CDataExchange*)> exchangeData;

private:
    static std::string describe(const NMHDR& header) {
        const auto& item = reinterpret_cast<const NMLISTVIEW&>(header);
        const auto& label = reinterpret_cast<const NMLVDISPINFO&>(header);
        const std::string text =
            header.code == LVN_BEGINLABELEDIT || header.code == LVN_ENDLABELEDIT
                ? label.pszText == nullptr ? "(given up)" : QString::fromWCharArray(label.pszText).toStdString()
                : std::string();
        switch (header.code) {
            case LVN_ITEMCHANGED:
                return (item.uNewState != 0 ? "selected " : "deselected ") + std::to_string(item.iItem);
            case NM_CLICK:
                return "click " + std::to_string(item.iItem);
            case NM_DBLCLK:
                return "doubleclick " + std::to_string(item.iItem);
            case NM_RCLICK:
                return "rightclick " + std::to_string(item.iItem);
            case LVN_KEYDOWN:
                return "key " + std::to_string(reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey);
            case LVN_BEGINLABELEDIT:
                return "begin " + std::to_string(label.iItem) + " " + text;
            case LVN_ENDLABELEDIT:
                return "end " + std::to_string(label.iItem) + " " + text;
            default:
                return "code " + std::to_string(header.code);
        }
    }
};

/// Runs `act` once a modal loop is up.
template <class Act>
void onceModal(Act act) {
    QTimer::singleShot(20, qApp, act);
}

/// Types any characters; QTest's own typing leaves most signs out.
inline void typeText(QWidget* widget, const QString& text) {
    for (const QChar character : text) QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, character, {});
}

using Log = std::vector<std::string>;

}  // namespace kdtest
