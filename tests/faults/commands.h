// Commands of the tests' own, for what no command of the module leads to.
#pragma once

namespace kdtest {

/// While it lives there are the commands
///   CELLBLOCK    puts the block "part" into B2 of the first table
///   BLOCKINCELL  asks for a cell and opens the dialog of the block in it
///   IMPORTSHEET  reads schedule.csv by the function for spreadsheets and puts the table at the origin
///   SHEETNAMES   asks both functions for the names of the tables in schedule.csv
class OwnCommands {
public:
    OwnCommands();
    ~OwnCommands();
    OwnCommands(const OwnCommands&) = delete;
    OwnCommands& operator=(const OwnCommands&) = delete;
};

}  // namespace kdtest
