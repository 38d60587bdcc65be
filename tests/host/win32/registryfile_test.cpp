// What becomes of the registry's file: other processes, rights, damage.

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <random>

#include "host/win32/registry.h"
#include "tests/host/win32/registryfixture.h"
#include "tests/support/otherprocess.h"

namespace {

TEST_F(RegistryStore, lies_in_the_users_configuration_folder) {
    create(L"A");
    EXPECT_EQ(QString::fromStdString(kdhost::registry::filePath()), config.registryFile());
    EXPECT_EQ(QDir(config.hostFolder()).entryList(QDir::Files, QDir::Name),
              QStringList({QStringLiteral("registry.json"), QStringLiteral("registry.lock")}));
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", "/nowhere");
    for (const char* notAbsolute : {"", "relative/folder"}) {
        qputenv("XDG_CONFIG_HOME", notAbsolute);
        EXPECT_EQ(kdhost::registry::filePath(), "/nowhere/.config/kdhost/registry.json");
    }
    qputenv("HOME", home);
}

TEST_F(RegistryStore, one_process_reads_what_another_wrote) {
    EXPECT_EQ(kdtest::inOtherProcess([&] { return set(create(L"A"), L"v", 77) == ERROR_SUCCESS ? 0 : 1; }), 0);
    const HKEY key = open(L"A");
    EXPECT_EQ(get(key, L"v"), 77);
    // A handle that was open all along sees what comes later.
    EXPECT_EQ(kdtest::inOtherProcess([&] { return set(open(L"A"), L"v", 78) == ERROR_SUCCESS ? 0 : 1; }), 0);
    EXPECT_EQ(get(key, L"v"), 78);
}

TEST_F(RegistryStore, processes_that_write_at_once_lose_nothing) {
    constexpr int processes = 4;
    constexpr int values = 50;
    const auto name = [](int process, int value) { return std::to_wstring(process) + L"." + std::to_wstring(value); };
    create(L"A");
    std::vector<pid_t> children;
    for (int process = 0; process < processes; ++process) {
        const pid_t child = fork();
        if (child == 0) {
            const HKEY key = open(L"A");
            int failures = 0;
            for (int value = 0; value < values; ++value) {
                if (set(key, name(process, value).c_str(), static_cast<DWORD>(value)) != ERROR_SUCCESS) ++failures;
            }
            _exit(failures);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    const HKEY key = open(L"A");
    for (int process = 0; process < processes; ++process) {
        for (int value = 0; value < values; ++value) EXPECT_EQ(get(key, name(process, value).c_str()), value);
    }
}

TEST_F(RegistryStore, while_another_process_keeps_the_lock_changes_fail_and_reads_go_on) {
    const HKEY key = create(L"A");
    set(key, L"v", 1);
    const int lock = ::open(QFile::encodeName(inFolder("registry.lock")).constData(), O_RDWR);
    ASSERT_GE(lock, 0);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    EXPECT_EQ(set(key, L"v", 2), ERROR_LOCK_VIOLATION);
    EXPECT_EQ(get(key, L"v"), 1);
    close(lock);
    EXPECT_EQ(set(key, L"v", 2), ERROR_SUCCESS);
}

TEST_F(RegistryStore, an_unchanged_tree_is_not_written_again) {
    const HKEY key = create(L"A");
    set(key, L"v", 1);
    config.writeRegistryText(config.registryText() + "\n\n");
    const QByteArray before = config.registryText();
    EXPECT_EQ(set(key, L"v", 1), ERROR_SUCCESS);
    EXPECT_EQ(config.registryText(), before);
    EXPECT_EQ(set(key, L"v", 2), ERROR_SUCCESS);
    EXPECT_NE(config.registryText(), before);
}

TEST_F(RegistryStore, in_a_read_only_folder_nothing_opens_for_writing_and_nothing_is_lost) {
    set(create(L"A"), L"v", 1);
    const HKEY writing = open(L"A");
    const QByteArray before = config.registryText();
    config.makeReadOnly();
    {
        const kdtest::PlainUser user;
        open(L"A", ERROR_ACCESS_DENIED);
        open(L"A", ERROR_ACCESS_DENIED, KEY_CREATE_SUB_KEY);
        create(L"B", ERROR_ACCESS_DENIED);
        EXPECT_EQ(get(open(L"A", ERROR_SUCCESS, KEY_READ), L"v"), 1);
        EXPECT_EQ(set(writing, L"v", 2), ERROR_ACCESS_DENIED);
        EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, L"A"), ERROR_ACCESS_DENIED);
    }
    EXPECT_EQ(config.registryText(), before);
}

TEST_F(RegistryStore, a_file_that_stays_closed_is_not_taken_for_empty) {
    set(create(L"A"), L"v", 1);
    const QByteArray before = config.registryText();
    const QByteArray file = QFile::encodeName(config.registryFile());
    for (const QString& open : {config.path(), config.hostFolder(), inFolder("registry.lock")}) {
        ASSERT_EQ(chmod(QFile::encodeName(open).constData(), 0777), 0);
    }
    ASSERT_EQ(chmod(file.constData(), 0), 0);
    {
        const kdtest::PlainUser user;
        open(L"A", ERROR_ACCESS_DENIED);
        create(L"B", ERROR_ACCESS_DENIED);
    }
    ASSERT_EQ(chmod(file.constData(), 0600), 0);
    EXPECT_EQ(config.registryText(), before);
}

TEST_F(RegistryStore, a_folder_that_cannot_be_made_refuses_changes) {
    QFile blocker(config.hostFolder());
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    open(L"A", ERROR_FILE_NOT_FOUND);
    create(L"A", ERROR_ACCESS_DENIED);
    EXPECT_TRUE(QFile::exists(config.hostFolder()));
}

TEST_F(RegistryStore, a_damaged_file_reads_as_empty_and_is_set_aside_by_the_first_change) {
    const HKEY key = create(L"A");
    set(key, L"v", 1);
    const QByteArray whole = config.registryText();
    const auto with = [&](const char* part, const char* other) { return QByteArray(whole).replace(part, other); };
    const QByteArray damages[] = {
        QByteArray("x"),
        whole.left(whole.size() / 2),
        QByteArray("{}"),
        QByteArray("[1]"),
        QByteArray("{\"version\": 1, \"currentUser\": {}}"),
        with("\"version\": 1", "\"version\": 2"),
        with("\"version\": 1", "\"version\": \"1\""),
        with("\"type\": 4", "\"type\": -4"),
        with("\"type\": 4", "\"type\": 4294967296"),
        with("\"type\": 4", "\"type\": \"4\""),
        with("01000000", "0100000"),
        with("01000000", "0100000g"),
        with("\"data\"", "\"date\""),
        with("\"keys\"", "\"kees\""),
        with("\"values\": {}", "\"values\": []"),
        whole + "x",
        "\xff\xfe" + whole,
        QByteArray(),
    };
    int aside = 0;
    for (const QByteArray& damage : damages) {
        ASSERT_NE(damage, whole) << aside;
        config.writeRegistryText(damage);
        open(L"A", ERROR_FILE_NOT_FOUND);
        get(key, L"v", ERROR_KEY_DELETED);
        EXPECT_EQ(set(key, L"v", 2), ERROR_KEY_DELETED);
        // Only a change that is stored touches the file.
        EXPECT_EQ(config.registryText(), damage);
        create(L"B");
        open(L"B");
        ++aside;
        QFile kept(config.hostFolder() + QStringLiteral("/registry.damaged-%1.json").arg(aside));
        ASSERT_TRUE(kept.open(QIODevice::ReadOnly)) << aside;
        EXPECT_EQ(kept.readAll(), damage);
    }
}

TEST_F(RegistryStore, a_file_deeper_than_any_path_is_damaged) {
    using namespace kdhost::registry;
    const auto nested = [](int levels) {
        Key root;
        Key* at = &root;
        for (int level = 0; level < levels; ++level) at = &at->keys[L"a"];
        return print(root);
    };
    EXPECT_TRUE(parse(nested(mostLevels)).has_value());
    EXPECT_FALSE(parse(nested(mostLevels + 1)).has_value());
}

TEST_F(RegistryStore, what_is_printed_parses_to_the_same_tree) {
    using namespace kdhost::registry;
    std::mt19937 random(3);
    const auto name = [&] {
        std::wstring text(random() % 5, 0);
        const unsigned range = random() % 3 == 0 ? 0xd7ff : 126;
        for (wchar_t& character : text) character = static_cast<wchar_t>(1 + random() % range);
        return text;
    };
    for (int number = 0; number < 300; ++number) {
        Key root;
        std::vector<Key*> keys = {&root};
        for (int step = 0; step < 30; ++step) {
            Key& key = *keys[random() % keys.size()];
            Value& value = key.values[name()];
            value.type = static_cast<DWORD>(random());
            for (std::size_t left = random() % 6; left > 0; --left) value.data.push_back(static_cast<BYTE>(random()));
            Key& below = key.keys[name()];
            if (std::find(keys.begin(), keys.end(), &below) == keys.end()) keys.push_back(&below);
        }
        EXPECT_EQ(parse(print(root)), root);
    }
}

}  // namespace
