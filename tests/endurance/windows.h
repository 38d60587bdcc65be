// How windows are answered: the open menu, the drop-down list, the editor in the cell, message boxes, the file and
// colour dialogs, and any other dialog by its controls. A window is used for a while and then ended.
#pragma once

#include <QPointer>
#include <QWidget>
#include <string>
#include <vector>

#include "tests/endurance/stand.h"
#include "tests/support/random.h"

namespace endurance {

/// One window that was on top at some time during an action.
struct Visit {
    QPointer<QWidget> window;
    int stepsLeft = 0;
    int triesToEnd = 0;
    QPointer<QWidget> owed;  ///< an edit whose value may have been refused
};

class Windows {
public:
    Windows(Random& random, const Stand& stand) : m_random(random), m_stand(stand) {}

    /// The next line, "@..." as in a script, for the window on top.
    std::wstring next();
    /// At the begin of each action.
    void forget();

private:
    Visit& visitOf(QWidget* window);

    Random& m_random;
    const Stand& m_stand;
    std::vector<Visit> m_visits;  ///< the one on top last
    int m_editsLeft = 0;
};

}  // namespace endurance
