// The middle application class: it adds the command table and the table of LISP-side functions.
#pragma once

#include "module/frame/dbxapp.h"

class KdRxTvxApp : public KdRxDbxApp {
public:
    /// Registers every command of the command table.
    int On_kInitAppMsg(void* applicationId) override;
    int On_kUnloadAppMsg(void* argument) override;
    int On_kLoadDwgMsg(void* argument) override;
    int On_kUnloadDwgMsg(void* argument) override;
    int On_kInvkSubrMsg(void* argument) override;

protected:
    ~KdRxTvxApp() = default;
};
