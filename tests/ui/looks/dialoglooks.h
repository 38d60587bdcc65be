// What can be wrong with the looks of a dialog, and pictures of dialogs for people to look at.
#pragma once

#include <QString>
#include <QWidget>
#include <string>
#include <vector>

namespace kdtest {

using Faults = std::vector<std::string>;

/// Controls that are too small for what they show, lie outside their parent or cover a sibling.
Faults cutControls(const QWidget& window);

/// Labels and buttons without a Chinese character, in a program that runs in Chinese. Numbers and signs pass.
Faults untranslatedTexts(const QWidget& window);

/// Two controls of one mnemonic, a control that no mnemonic leads to, one that readers of the screen have no name
/// for, a mnemonic that leads nowhere, no title, and no default button or more than one. "IDOK", "IDCANCEL" and
/// "IDHELP" need no mnemonic: Enter, Esc and F1 press them.
Faults unreachableControls(const QWidget& window);

/// Writes pictures/SCALEx/NAME.png in the build folder; the scale is the screen's.
void keepPicture(const QImage& image, const QString& name);
void keepPicture(QWidget& window, const QString& name);

}  // namespace kdtest
