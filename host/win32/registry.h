// Where the registry is kept: the file registry.json in the folder kdhost of the user's configuration folder.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "win32/registry.h"

namespace kdhost::registry {

/// Orders names of keys and values without regard to case.
struct NameLess {
    bool operator()(const std::wstring& a, const std::wstring& b) const;
};

struct Value {
    DWORD type = REG_NONE;
    std::vector<BYTE> data;
    friend bool operator==(const Value&, const Value&) = default;
};

struct Key {
    std::map<std::wstring, Value, NameLess> values;
    std::map<std::wstring, Key, NameLess> keys;
    friend bool operator==(const Key&, const Key&) = default;
};

/// More levels than this are refused in a path and in a file.
constexpr int mostLevels = 512;

/// `$XDG_CONFIG_HOME/kdhost/registry.json`; below `~/.config` where the variable is unset or relative.
std::string filePath();

/// The tree in a file's text; none when the text is damaged.
std::optional<Key> parse(const std::string& text);
std::string print(const Key& root);

enum class Condition {
    kSound,       ///< the file was read, or there is none, which is an empty tree
    kDamaged,     ///< the file isn't what print makes; its tree counts as empty
    kUnreadable,  ///< the file is there and can't be read
};
struct Stored {
    Key root;
    Condition condition = Condition::kSound;
};

/// Reads the file. Nothing is kept in memory between calls, so that every process sees what others wrote.
Stored read();

/// Whether a change could be stored: folder and file, as far as they are there, can be written.
bool isWritable();

/// Holds other processes back from changing the file.
class Lock {
public:
    /// Makes the folder when it is missing, and waits a short while for another holder.
    Lock();
    ~Lock();
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    /// ERROR_SUCCESS while the lock is held.
    LSTATUS status() const { return m_status; }

private:
    int m_file = -1;
    LSTATUS m_status = ERROR_ACCESS_DENIED;
};

/// Replaces the file in one step, so that a crash or a full disk never costs the old one. A damaged file is set
/// aside first, as registry.damaged-1.json and so on, for people to mend. False, with the old file still there,
/// when that fails. The caller holds the lock.
bool write(const Key& root, bool oldIsDamaged);

}  // namespace kdhost::registry
