// A running program in which acts fail: the host with the module loaded, a folder of files, and drawings made anew for
// each act. What a person would see of it is what is looked at.
#pragma once

#include <QTemporaryDir>
#include <QWidget>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/ad/application.h"
#include "host/ui/dialogs/filedialog.h"
#include "host/ui/inplaceeditor/inplaceeditor.h"
#include "tests/faults/commands.h"
#include "tests/faults/filefaults.h"
#include "tests/faults/scenario.h"
#include "tests/support/configfolder.h"

namespace kdtest {

/// What can be made to fail by its number.
struct FaultKind {
    const char* name;
    void (*arm)(int number);  ///< the n-th from now; 0 for none
    int (*left)();
};
extern const std::vector<FaultKind> kFaultKinds;

/// How a drawing stands.
struct Look {
    std::string drawing;    ///< the dump without what is no part of the drawing
    std::string unnamed;    ///< the same without handles: equal drawings are equal, however they were made
    std::size_t steps = 0;  ///< of undo
    std::map<std::string, std::string> files;  ///< of the user's folder: name and content
    std::string clipboard;                     ///< what it holds: the names of formats, and the text
};

/// How an act ended.
struct Ending {
    std::string failure;   ///< of the line that couldn't be carried out, or what a command of the host has told
    std::wstring message;  ///< the last one on the command line
    bool struck = false;   ///< whether what was to fail came
};

class Session {
public:
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// A new drawing, with nothing left of what was done before, in which the setting up is carried out.
    void begin(const Scenario& scenario);
    Ending run(const std::string& lines);
    /// The same with one failure of that kind on the way.
    Ending run(const std::string& lines, const FaultKind& kind, int number);
    /// How many failures of that kind there could be.
    int count(const std::string& lines, const FaultKind& kind);

    Look look();
    /// Puts the files back as they were, and takes away what has come since.
    void restoreFiles(const Look& look) const;
    /// The names of drawings that can't be read.
    static std::string damagedFiles(const Look& look);
    /// What nobody tells of and shouldn't be: one line for each thing that is left over, in progress or in disorder.
    std::string disorder();

private:
    void clearFiles() const;
    kdhost::Document& document() { return *m_application->documents().current(); }

    /// The folder that temporary files lie in while it lives.
    class TemporaryFolder {
    public:
        explicit TemporaryFolder(const QString& path);
        ~TemporaryFolder();
        TemporaryFolder(const TemporaryFolder&) = delete;
        TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    private:
        QByteArray m_before;
    };

    QTemporaryDir m_folder;
    const TemporaryFolder m_temporary{m_folder.path()};
    ConfigFolder m_config;  // below that folder: it fails, too
    std::string m_cameFrom;
    std::unique_ptr<FileFaults> m_files;
    const kdhost::WindowFileDialog m_fileDialog;
    const kdhost::InstalledInPlaceEditor m_inPlaceEditor = kdhost::installInPlaceEditor();
    QWidget m_mainWindow;  // hidden
    std::unique_ptr<kdhost::Application> m_application;
    std::unique_ptr<OwnCommands> m_commands;
};

}  // namespace kdtest
