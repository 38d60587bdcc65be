// What message boxes have shown, for those who watch.
#pragma once

#include <string>

namespace kdhost {

/// Text of the message box shown last; empty before the first.
const std::wstring& lastMessageBoxText();
/// As if none had been shown yet.
void forgetMessageBoxes();

}  // namespace kdhost
