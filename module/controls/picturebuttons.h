// A row of buttons with pictures, as a table: what each is called, shows, tells and does.
#pragma once

#include <array>

#include "module/controls/bitmapbutton.h"
#include "module/controls/wiring.h"
#include "module/core/resources.h"

/// The colour of bitmaps that is left out.
inline constexpr unsigned kBitmapMask = 0x848200;

template <class Dialog>
struct PictureButton {
    const char* control;
    const char* bitmap;
    unsigned toolTip;  ///< number of its text
    void (Dialog::*handler)();
};

/// The buttons of one table, in its order.
template <class Dialog, std::size_t N>
class PictureButtons {
public:
    /// The table outlives the buttons.
    explicit PictureButtons(const std::array<PictureButton<Dialog>, N>& table) : m_table(table) {}

    void exchange(CDataExchange* exchange) {
        for (std::size_t i = 0; i < N; ++i) DDX_Control(exchange, m_table[i].control, m_buttons[i]);
    }
    void connect(Dialog& dialog) const {
        for (const PictureButton<Dialog>& button : m_table) {
            const ControlWire<Dialog> wire[] = {{button.control, ControlSignal::Clicked, button.handler}};
            connectControls(dialog, wire);
        }
    }
    void loadBitmaps() {
        for (std::size_t i = 0; i < N; ++i)
            m_buttons[i].setBitmapId(QString::fromLatin1(m_table[i].bitmap), kBitmapMask);
    }
    void addToolTips(CWnd& dialog) {
        m_toolTips.Create(&dialog);
        for (std::size_t i = 0; i < N; ++i) m_toolTips.AddTool(&m_buttons[i], loadText(m_table[i].toolTip));
    }
    void relay(MSG* message) { m_toolTips.RelayEvent(message); }
    /// The button in that place of the table.
    CVqBitmapButton& operator[](std::size_t place) { return m_buttons[place]; }

private:
    const std::array<PictureButton<Dialog>, N>& m_table;
    std::array<CVqBitmapButton, N> m_buttons;
    CToolTipCtrl m_toolTips;
};
