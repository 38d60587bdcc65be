// What the host as an application offers to the database and to modules.
#pragma once

#include "kd/db/database.h"

namespace kdhost {

class HostServices : public KdDbHostApplicationServices {
public:
    KdDbDatabase* workingDatabase() const override { return m_workingDatabase; }
    void setWorkingDatabase(KdDbDatabase* database) override { m_workingDatabase = database; }
    const KdCommandLineState* commandLineState() const override;
    bool getTempFolder(wchar_t* folder, int length) const override;

private:
    class State : public KdCommandLineState {
    public:
        bool isOn() const override;
    };

    KdDbDatabase* m_workingDatabase = nullptr;
    State m_commandLineState;
};

}  // namespace kdhost
