// The fault seam: failures that tests provoke. Everything is off unless a test turns it on.
#pragma once

#include <set>
#include <string>

namespace kdhost {

struct Faults {
    // The n-th use from now fails, once; 0 is none. Each use that is made counts the number down.
    int failOpenNumber = 0;                      ///< opening of an object on whatever road, in a transaction too
    int failFieldNumber = 0;                     ///< giving a field its code, its place in the drawing or in a cell
    int failClipboardNumber = 0;                 ///< use of the clipboard and of the memory blocks that go through it
    bool noTableStyleDictionary = false;         ///< getTableStyleDictionary fails
    bool noView = false;                         ///< no drawing view, no viewport
    bool noDocumentData = false;                 ///< no data record of the active document
    bool commandLineOff = false;                 ///< the command line's state says off
    bool noCommandLineState = false;             ///< the services offer no command line state
    bool noTransaction = false;                  ///< no transaction can be started
    bool noMainAppService = false;               ///< vqcadMainAppService gives null
    bool noResourceModule = false;               ///< LoadResourceDll gives null
    std::set<std::wstring> unreadableVariables;  ///< names in capitals that kdedGetVar refuses
};

/// The process's one set of faults.
Faults& faults();

/// Counts one use down; true for the one that is to fail.
inline bool faultStrikes(int& number) {
    return number > 0 && --number == 0;
}

}  // namespace kdhost
