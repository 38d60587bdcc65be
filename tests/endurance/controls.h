// What can be done to a control of a window: a table by kinds of controls, and values by their names.
#pragma once

#include <string>
#include <vector>

#include "tests/endurance/stand.h"
#include "tests/support/random.h"

class QWidget;

namespace endurance {

/// The controls of a window that scripts can name and a person could use now; those that end the window and help are
/// left out.
std::vector<QWidget*> usableControls(QWidget& window);

/// The line of a script that uses the control.
std::wstring useOf(Random& random, const Stand& stand, QWidget& control);

/// The line that chooses a row of an open box.
std::wstring rowOf(Random& random, QWidget& box);

/// Whether the line gives an edit a value that it may refuse; the next line then has to be `remedyOf` the edit, since
/// it keeps the focus.
bool mayBeRefused(const std::wstring& line);
std::wstring remedyOf(Random& random, const Stand& stand, QWidget& control);

/// A name that styles may get.
std::wstring someName(Random& random);

}  // namespace endurance
