// The fault seam: failures that tests provoke. Everything is off unless a test turns it on.
#pragma once

#include <set>
#include <string>

namespace kdhost {

struct Faults {
    int failOpenNumber = 0;               ///< the n-th open from now, in a transaction too, fails once; 0 is none
    bool noTableStyleDictionary = false;  ///< getTableStyleDictionary fails
    bool noView = false;                  ///< no drawing view, no viewport
    bool noDocumentData = false;          ///< no data record of the active document
    bool commandLineOff = false;          ///< the command line's state says off
    bool noCommandLineState = false;      ///< the services offer no command line state
    bool noTransaction = false;           ///< no transaction can be started
    bool noMainAppService = false;        ///< vqcadMainAppService gives null
    bool noResourceModule = false;        ///< LoadResourceDll gives null
    std::set<std::wstring> unreadableVariables;  ///< names in capitals that kdedGetVar refuses
};

/// The process's one set of faults.
Faults& faults();

}  // namespace kdhost
