// The clipboard between two running programs, on a display of the test's own: the offscreen platform has no
// clipboard that programs share.

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QProcess>
#include <memory>
#include <random>
#include "tests/support/places.h"
#include "tests/support/xdisplay.h"

namespace {

constexpr int kPatience = 30000;  ///< milliseconds; a peer answers at once
constexpr const char* kNoAnswer = "no answer";

/// One running program with its clipboard.
class Peer {
public:
    explicit Peer(const kdtest::XDisplay& display) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DISPLAY"), display.name());
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(kdtest::builtPath("bin/clipboardpeer"), QStringList());
        EXPECT_EQ(answer(), "ready");
    }
    ~Peer() {
        m_process.closeWriteChannel();
        EXPECT_TRUE(m_process.waitForFinished(kPatience));
        EXPECT_EQ(m_process.exitCode(), 0);
    }

    QByteArray ask(const QByteArray& line) {
        m_process.write(line + '\n');
        return answer();
    }

    /// Asks until the answer is the one wanted: the news of what another program has put on the clipboard reaches
    /// this one some time after that has been done. The last answer when it never comes.
    QByteArray askUntil(const QByteArray& wanted, const QByteArray& line) {
        QElapsedTimer waited;
        waited.start();
        QByteArray last = ask(line);
        while (last != wanted && last != kNoAnswer && !waited.hasExpired(kPatience)) last = ask(line);
        return last;
    }

private:
    QByteArray answer() {
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(kPatience)) return kNoAnswer;
        }
        return m_process.readLine().trimmed();
    }

    QProcess m_process;
};

class ClipboardOfTwoPrograms : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_display.runs());
        one = std::make_unique<Peer>(m_display);
        other = std::make_unique<Peer>(m_display);
    }

private:
    kdtest::XDisplay m_display;

protected:
    std::unique_ptr<Peer> one;
    std::unique_ptr<Peer> other;
};

/// Whether the other program comes to see this.
#define EXPECT_ANSWER(peer, question, wanted) EXPECT_EQ((peer).askUntil(wanted, question), wanted)

TEST_F(ClipboardOfTwoPrograms, hands_a_registered_format_over_and_back_to_the_last_byte) {
    const QByteArray there = QByteArray("a\0b\n\xff\x01", 6).toHex();
    const QByteArray back = QByteArray("\0\0\0", 3).toHex();
    EXPECT_EQ(other->ask("has CF_ACTABLE_CELLS"), "no");
    EXPECT_EQ(one->ask("put CF_ACTABLE_CELLS " + there), "done");
    EXPECT_ANSWER(*other, "has CF_ACTABLE_CELLS", "yes");
    EXPECT_ANSWER(*other, "get CF_ACTABLE_CELLS", there);
    EXPECT_EQ(other->ask("put CF_ACTABLE_CELLS " + back), "done");
    EXPECT_ANSWER(*one, "get CF_ACTABLE_CELLS", back);
}

TEST_F(ClipboardOfTwoPrograms, knows_a_format_by_its_name_whatever_number_each_has_given_it) {
    // Other formats that were registered before shift the numbers of the first program.
    for (const char* name : {"has first", "has second"}) one->ask(name);
    one->ask("put AutoCAD.r19 6162");
    EXPECT_ANSWER(*other, "get AutoCAD.r19", "6162");
    EXPECT_EQ(other->ask("has AutoCAD.r18"), "no");
    EXPECT_EQ(other->ask("has first"), "no");
}

TEST_F(ClipboardOfTwoPrograms, hands_all_formats_of_one_object_over) {
    one->ask("put CF_ACTABLE_CELLS 01");
    one->ask("add AutoCAD.r19 0202");
    EXPECT_ANSWER(*other, "get AutoCAD.r19", "0202");
    EXPECT_EQ(other->ask("get CF_ACTABLE_CELLS"), "01");
}

TEST_F(ClipboardOfTwoPrograms, lets_the_last_one_win) {
    one->ask("put CF_ACTABLE_CELLS 01");
    EXPECT_ANSWER(*other, "get CF_ACTABLE_CELLS", "01");
    other->ask("put AutoCAD.r19 02");
    EXPECT_ANSWER(*one, "get AutoCAD.r19", "02");
    EXPECT_EQ(one->ask("has CF_ACTABLE_CELLS"), "no");
}

TEST_F(ClipboardOfTwoPrograms, hands_plain_text_over_as_utf8) {
    const QByteArray words = "Tab\there, \xE8\xA1\xA8\xE6\xA0\xBC and a quote \"";
    EXPECT_EQ(one->ask("text " + words), "done");
    EXPECT_ANSWER(*other, "get text/plain", words.toHex());
    EXPECT_EQ(other->ask("has text/plain"), "yes");
    EXPECT_EQ(other->ask("get CF_ACTABLE_CELLS"), "none");
    EXPECT_EQ(other->ask("text back"), "done");
    EXPECT_ANSWER(*one, "get text/plain", QByteArray("back").toHex());
}

TEST_F(ClipboardOfTwoPrograms, hands_megabytes_over) {
    std::mt19937 random(5);
    QByteArray bytes(3 << 20, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    EXPECT_EQ(one->ask("put CF_ACTABLE_CELLS " + bytes.toHex()), "done");
    EXPECT_TRUE(other->askUntil(bytes.toHex(), "get CF_ACTABLE_CELLS") == bytes.toHex());
}

}  // namespace
