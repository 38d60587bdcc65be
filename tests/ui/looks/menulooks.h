// The looks of popup menus: what of them is cut, at any scale.
#pragma once

#include <QMenu>
#include <QProxyStyle>

#include "tests/ui/looks/dialoglooks.h"

namespace kdtest {

/// A menu in one column for as long as this lives, however high. The screen of the tests is small, and at scales that
/// belong to much larger screens menus wrap on it.
class InOneColumn {
public:
    explicit InOneColumn(QMenu& menu) : m_menu(menu) {
        // The first time a menu is laid out before it learns that it may scroll.
        m_menu.setStyle(&m_style);
        m_menu.setStyle(&m_style);
        m_menu.resize(m_menu.sizeHint());
    }
    ~InOneColumn() { m_menu.setStyle(nullptr); }
    InOneColumn(const InOneColumn&) = delete;
    InOneColumn& operator=(const InOneColumn&) = delete;

    /// Items that are narrower than their texts, or lie outside of the menu.
    Faults cutItems() const {
        Faults faults;
        for (QAction* item : m_menu.actions()) {
            QString text = item->text();
            text.remove(QLatin1Char('&'));
            const QRect place = m_menu.actionGeometry(item);
            const bool isWhole = place.width() > m_menu.fontMetrics().horizontalAdvance(text);
            if (!isWhole || !m_menu.rect().contains(place)) faults.push_back(text.toStdString());
        }
        return faults;
    }

private:
    class Style : public QProxyStyle {
    public:
        int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                      QStyleHintReturn* result) const override {
            return hint == SH_Menu_Scrollable ? 1 : QProxyStyle::styleHint(hint, option, widget, result);
        }
    };

    QMenu& m_menu;
    Style m_style;
};

}  // namespace kdtest
