// A prompt as the command line shows it: its keywords, written between brackets, can be clicked.
#pragma once

#include <QString>
#include <string>

namespace kdhost {

/// The prompt without line ends around it.
std::wstring promptLine(const std::wstring& prompt);

/// The prompt as rich text. Each word of "[Words/Like these/中文(Z)]" is a link to what is typed for it.
QString promptAsLinks(const std::wstring& prompt);

/// What is typed for a keyword as a prompt shows it: the letters in parentheses, else the word that has capitals.
QString typedFor(const QString& shown);

}  // namespace kdhost
