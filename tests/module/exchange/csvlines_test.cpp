// The CSV rules on their own: decoding against the UTF-8 codec itself, splitting against the pattern itself.

#include "module/exchange/csvlines.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QTextCodec>
#include <random>
#include <string>

namespace {

/// The lines of a text, each with its line feed.
QList<QByteArray> linesOf(const QByteArray& bytes) {
    QList<QByteArray> lines;
    for (int from = 0; from < bytes.size();) {
        const int feed = bytes.indexOf('\n', from);
        const int next = feed < 0 ? bytes.size() : feed + 1;
        lines.append(bytes.mid(from, next - from));
        from = next;
    }
    return lines;
}

/// The units as they stand; QString's own conversions would drop a byte order mark.
QString asString(const char16_t* text, std::ptrdiff_t length) {
    return QString(reinterpret_cast<const QChar*>(text), static_cast<int>(length));
}

/// The slow model: what a converter of its own makes of a line. Null when it meets invalid characters.
QString decodedByCodec(const QByteArray& line) {
    QTextCodec::ConverterState state;
    const QString text = QTextCodec::codecForName("UTF-8")->toUnicode(line.constData(), line.size(), &state);
    if (state.invalidChars > 0) return {};
    return text.isNull() ? QString(QLatin1String("")) : text;
}

QString decoded(const QByteArray& line) {
    std::u16string room(static_cast<std::size_t>(line.size()), u'\0');
    const char16_t* const end = csv::decodeLine(line.constBegin(), line.constEnd(), room.data());
    if (end == nullptr) return {};
    if (end == room.data()) return QLatin1String("");
    return asString(room.data(), end - room.data());
}

QStringList splitByPattern(const QString& line) {
    static const QRegularExpression separator(QStringLiteral(",(?=([^\"]*\"[^\"]*\")*[^\"]*$)"));
    return line.split(separator, Qt::KeepEmptyParts);
}

QStringList split(const QString& line) {
    std::u16string text = line.toStdU16String();
    std::vector<csv::Field> fields;
    csv::splitLine(text.data(), text.data() + text.size(), fields);
    QStringList parts;
    for (const csv::Field& field : fields) parts.append(asString(field.text, field.length));
    return parts;
}

QString unquoted(const QString& field) {
    std::u16string text = field.toStdU16String();
    const csv::Field result = csv::unquote({text.data(), static_cast<int>(text.size())});
    return asString(result.text, result.length);
}

/// The slow model of unquoting.
QString unquotedByReplacing(QString field) {
    const QChar quote = QLatin1Char('"');
    if (field.size() < 2 || !field.startsWith(quote) || !field.endsWith(quote)) return field;
    return field.mid(1, field.size() - 2).replace(QLatin1String("\"\""), QLatin1String("\""));
}

struct Read {
    bool accepted;
    int rows;
    int columns;
    QVector<QStringList> lines;
};

Read readText(const QByteArray& bytes) {
    csv::Rows rows;
    const bool accepted = rows.read(bytes);
    QVector<QStringList> copies;
    for (const QStringList& line : rows.lines()) {
        QStringList copy;
        for (const QString& field : line) copy.append(QString(field.constData(), field.size()));
        copies.append(copy);
    }
    return {accepted, rows.rowCount(), rows.columnCount(), copies};
}

QStringList strings(std::initializer_list<const char*> texts) {
    QStringList list;
    for (const char* text : texts) list.append(QString::fromUtf8(text));
    return list;
}

/// One draw out of a list of pieces, as a random line of up to `most` pieces.
template <class Text, class Piece>
Text randomLine(std::mt19937& random, const std::vector<Piece>& pieces, unsigned most) {
    Text line;
    for (auto n = random() % (most + 1); n > 0; --n) line += pieces[random() % pieces.size()];
    return line;
}

TEST(CsvLines, Splitting_gives_what_the_pattern_gives_on_random_lines) {
    const std::vector<QString> pieces = {QStringLiteral("\""), QStringLiteral("\""),   QStringLiteral(","),
                                         QStringLiteral(","),  QStringLiteral(" "),    QStringLiteral("a"),
                                         QStringLiteral("\r"), QStringLiteral("ü"),    QStringLiteral("管"),
                                         QStringLiteral("b"),  QStringLiteral("\"\""), QStringLiteral("😀")};
    std::mt19937 random(7);
    for (int i = 0; i < 60000; ++i) {
        QString line = randomLine<QString>(random, pieces, 24);
        if (random() % 2 == 0) line += QLatin1Char('\n');
        ASSERT_EQ(split(line), splitByPattern(line)) << line.toStdString();
    }
}

TEST(CsvLines, Unquoting_gives_what_replacing_gives_on_random_fields) {
    const std::vector<QString> pieces = {QStringLiteral("\""), QStringLiteral("\""), QStringLiteral("a"),
                                         QStringLiteral(" "), QStringLiteral("\n")};
    std::mt19937 random(11);
    for (int i = 0; i < 50000; ++i) {
        const QString field = randomLine<QString>(random, pieces, 9);
        ASSERT_EQ(unquoted(field), unquotedByReplacing(field)) << field.toStdString();
    }
}

TEST(CsvLines, Decoding_gives_what_the_codec_gives_on_random_lines) {
    // Good and bad stretches, long plain ones among them, since decoders take those in steps.
    const std::vector<QByteArray> pieces = {
        "a",
        ",",
        "\"",
        QByteArray("\0", 1),
        "0123456",
        "sixteen letters.",
        "a plain stretch of thirty-three..",
        "\xC3\xBC",
        "\xE7\xAE\xA1",
        "\xF0\x9F\x98\x80",
        "\xEF\xBB\xBF",
        "\xEF\xBF\xBF",
        "\xEF\xBF\xBE",
        "\xEF\xB7\x90",
        "\xF4\x8F\xBF\xBF",
        "\xC2\x80",
        "\xDF\xBF",
        "\xE0\xA0\x80",
        "\xED\x9F\xBF",
        "\xEE\x80\x80",
        "\r",
    };
    const std::vector<QByteArray> bad = {"\x80",     "\xC3",         "\xE7\xAE",         "\xF0\x9F\x98",
                                         "\xC0\x80", "\xED\xA0\x80", "\xED\xBF\xBF",     "\xF4\x90\x80\x80",
                                         "\xFF",     "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xE0\x80",
                                         "\xF8\x88"};
    std::mt19937 random(13);
    int refused = 0;
    for (int i = 0; i < 200000; ++i) {
        QByteArray line = randomLine<QByteArray>(random, pieces, 8);
        if (random() % 3 == 0) line += bad[random() % bad.size()];
        if (random() % 4 == 0) line += randomLine<QByteArray>(random, pieces, 3);
        if (random() % 2 == 0) line += '\n';
        const QString expected = decodedByCodec(line);
        refused += expected.isNull() ? 1 : 0;
        ASSERT_EQ(decoded(line), expected) << line.toHex(' ').toStdString();
        ASSERT_EQ(decoded(line).isNull(), expected.isNull()) << line.toHex(' ').toStdString();
    }
    EXPECT_GT(refused, 10000);
    EXPECT_LT(refused, 150000);
}

TEST(CsvLines, Decoding_gives_what_the_codec_gives_on_random_bytes) {
    std::mt19937 random(17);
    for (int i = 0; i < 300000; ++i) {
        QByteArray line;
        // Mostly bytes that take part in sequences, so that some lines are good.
        for (auto n = random() % 7; n > 0; --n) {
            line += static_cast<char>(random() % 3 == 0 ? random() % 256 : 0x80 + random() % 0x80);
        }
        line.replace('\n', ' ');
        if (random() % 2 == 0) line += '\n';
        ASSERT_EQ(decoded(line), decodedByCodec(line)) << line.toHex(' ').toStdString();
        ASSERT_EQ(decoded(line).isNull(), decodedByCodec(line).isNull()) << line.toHex(' ').toStdString();
    }
}

TEST(CsvLines, Every_sequence_of_two_and_three_bytes_decodes_as_the_codec_decodes_it) {
    for (int lead = 0x80; lead < 0x100; ++lead) {
        for (int second = 0; second < 0x100; ++second) {
            for (const int third : {-1, 0x41, 0x7F, 0x80, 0x9F, 0xA0, 0xBF, 0xC0}) {
                QByteArray line(1, static_cast<char>(lead));
                line += static_cast<char>(second == '\n' ? ' ' : second);
                if (third >= 0) line += static_cast<char>(third);
                ASSERT_EQ(decoded(line), decodedByCodec(line)) << line.toHex(' ').toStdString();
                ASSERT_EQ(decoded(line).isNull(), decodedByCodec(line).isNull()) << line.toHex(' ').toStdString();
            }
        }
    }
}

struct Example {
    const char* name;
    QByteArray bytes;
    int rows;
    int columns;
    QVector<QStringList> lines;
};

class CsvText : public ::testing::TestWithParam<Example> {};

TEST_P(CsvText, reads_as_told) {
    const Example& example = GetParam();
    const Read read = readText(example.bytes);
    EXPECT_TRUE(read.accepted);
    EXPECT_EQ(read.rows, example.rows);
    EXPECT_EQ(read.columns, example.columns);
    EXPECT_EQ(read.lines, example.lines);
}

INSTANTIATE_TEST_SUITE_P(
    Examples, CsvText,
    ::testing::Values(
        Example{"empty_text_has_no_rows", "", 0, 0, {}},
        Example{"line_end_alone_is_a_row_of_one_field", "\n", 1, 1, {strings({"\n"})}},
        Example{"comma_in_quotes_stays", "a,\"b,c\",d\n", 1, 3, {strings({"a", "b,c", "d\n"})}},
        Example{"doubled_quotes_become_one", "\"x\"\"y\",z\n", 1, 2, {strings({"x\"y", "z\n"})}},
        Example{"last_line_beginning_with_a_comma_does_not_count",
                "a,b\n,c,d\n",
                1,
                3,
                {strings({"a", "b\n"}), strings({"", "c", "d\n"})}},
        Example{"line_beginning_with_a_comma_in_the_middle_counts",
                "a\n,b\nc\n",
                3,
                2,
                {strings({"a\n"}), strings({"", "b\n"}), strings({"c\n"})}},
        Example{"quoted_empty_first_field_does_not_count", "\"\",b", 0, 2, {strings({"", "b"})}},
        Example{"quoted_last_field_keeps_quotes_before_a_line_end", "a,\"b\"\n", 1, 2, {strings({"a", "\"b\"\n"})}},
        Example{"quoted_last_field_loses_quotes_at_the_end_of_the_text", "a,\"b\"", 1, 2, {strings({"a", "b"})}},
        Example{"carriage_return_stays_with_the_line_feed",
                "a,b\r\nc\r\n",
                2,
                2,
                {strings({"a", "b\r\n"}), strings({"c\r\n"})}},
        Example{"carriage_return_alone_ends_no_line", "a\rb,c", 1, 2, {strings({"a\rb", "c"})}},
        Example{"empty_fields_keep_their_places", "a,,,\n", 1, 4, {strings({"a", "", "", "\n"})}},
        Example{"blanks_stay", " a , b \n", 1, 2, {strings({" a ", " b \n"})}},
        Example{"quotes_not_around_the_whole_field_stay", "x\"y\"z,\"a\" \n", 1, 2, {strings({"x\"y\"z", "\"a\" \n"})}},
        Example{"lone_quote_is_a_field", "\",a", 1, 2, {strings({"\"", "a"})}},
        Example{"odd_quote_behind_keeps_commas_before_it", "a,b,\"c\n", 1, 1, {strings({"a,b,\"c\n"})}},
        Example{"line_break_in_quotes_ends_the_row",
                "a,\"b\nc\",d\n",
                2,
                2,
                {strings({"a,\"b\n"}), strings({"c\"", "d\n"})}},
        Example{"byte_order_mark_is_dropped_at_the_start_of_every_line",
                "\xEF\xBB\xBF"
                "a\n"
                "\xEF\xBB\xBF"
                "\"b\",c\n",
                2,
                2,
                {strings({"a\n"}), strings({"b", "c\n"})}},
        Example{"second_byte_order_mark_stays",
                "\xEF\xBB\xBF\xEF\xBB\xBF"
                "a",
                1,
                1,
                {{QString(QChar(0xFEFF)) + QLatin1Char('a')}}},
        Example{"byte_order_mark_alone_is_a_line_of_one_empty_field", "\xEF\xBB\xBF", 0, 1, {strings({""})}},
        Example{"sequence_cut_off_by_the_end_is_dropped", "a,b\xE7\xAE", 1, 2, {strings({"a", "b"})}},
        Example{"text_of_half_a_sequence_is_one_empty_field", "\xF0\x9F", 0, 1, {strings({""})}},
        Example{"beyond_16_bits_is_a_surrogate_pair", "\xF0\x9F\x98\x80,a", 1, 2, {strings({"\xF0\x9F\x98\x80", "a"})}},
        Example{"nul_passes", QByteArray("a\0b,c", 5), 1, 2, {{QString(QStringLiteral("a\0b")), QStringLiteral("c")}}}),
    [](const auto& test) { return test.param.name; });

class RefusedText : public ::testing::TestWithParam<std::pair<const char*, QByteArray>> {};

TEST_P(RefusedText, is_refused_as_a_whole) {
    EXPECT_FALSE(readText(GetParam().second).accepted);
}

INSTANTIATE_TEST_SUITE_P(
    Examples, RefusedText,
    ::testing::Values(std::pair{"lone_continuation_in_the_last_line", QByteArray("a,b\nc,\x80")},
                      std::pair{"bad_byte_in_a_line_that_does_not_count", QByteArray("a\n,\xFF\n")},
                      std::pair{"sequence_cut_off_by_a_line_end", QByteArray("a\xC3\nb\n")},
                      std::pair{"sequence_cut_off_by_a_comma", QByteArray("a\xC3,b\n")},
                      std::pair{"sequence_going_on_behind_a_line_end", QByteArray("\xE7\xAE\n\xA1\n")},
                      std::pair{"encoded_surrogate", QByteArray("\xED\xA0\x80\n")},
                      std::pair{"longer_than_need_be", QByteArray("\xC0\xAF\n")},
                      std::pair{"beyond_the_last_character", QByteArray("\xF4\x90\x80\x80\n")}),
    [](const auto& test) { return test.param.first; });

TEST(CsvLines, A_whole_random_text_reads_as_codec_and_pattern_read_it) {
    const std::vector<QByteArray> pieces = {"a", "\"", "\"", ",", ",", "\n", "\r\n", " ", "\xC3\xBC", "\xEF\xBB\xBF"};
    std::mt19937 random(23);
    for (int i = 0; i < 5000; ++i) {
        const QByteArray text = randomLine<QByteArray>(random, pieces, 60);
        QVector<QStringList> expected;
        int rows = 0;
        int columns = 0;
        for (const QByteArray& line : linesOf(text)) {
            QStringList fields = splitByPattern(decodedByCodec(line));
            for (QString& field : fields) field = unquotedByReplacing(field);
            expected.append(fields);
            columns = std::max(columns, fields.size());
            if (!fields.first().isEmpty()) rows = expected.size();
        }
        const Read read = readText(text);
        ASSERT_TRUE(read.accepted);
        ASSERT_EQ(read.lines, expected) << text.toStdString();
        ASSERT_EQ(read.rows, rows);
        ASSERT_EQ(read.columns, columns);
    }
}

TEST(CsvLines, A_hundred_thousand_rows_keep_their_fields) {
    QByteArray text;
    for (int row = 0; row < 100000; ++row) {
        const QByteArray number = QByteArray::number(row);
        text += number + ",\"a, " + number + "\",,b,c,d,e," + number + "\n";
    }
    csv::Rows rows;
    ASSERT_TRUE(rows.read(text));
    ASSERT_EQ(rows.rowCount(), 100000);
    ASSERT_EQ(rows.columnCount(), 8);
    for (int row = 0; row < 100000; ++row) {
        const QString number = QString::number(row);
        const QStringList& fields = rows.lines()[row];
        ASSERT_EQ(fields[0], number);
        ASSERT_EQ(fields[1], QStringLiteral("a, ") + number);
        ASSERT_TRUE(fields[2].isEmpty());
        ASSERT_EQ(fields[7], number + QLatin1Char('\n'));
    }
}

TEST(CsvLines, A_line_of_a_megabyte_splits_into_all_its_fields) {
    // The pattern's engine gives up on so many quotes; the rule doesn't.
    QByteArray text("first");
    while (text.size() < (1 << 20)) text += ",\"x\"";
    const Read read = readText(text);
    ASSERT_TRUE(read.accepted);
    ASSERT_EQ(read.lines.size(), 1);
    EXPECT_EQ(read.columns, 1 + (text.size() - 5) / 4);
    EXPECT_EQ(read.lines[0][0], QStringLiteral("first"));
    EXPECT_EQ(read.lines[0].count(QStringLiteral("x")), read.columns - 1);
}

TEST(CsvLines, A_field_copied_by_its_characters_outlives_the_rows) {
    QString kept;
    {
        csv::Rows rows;
        ASSERT_TRUE(rows.read("kept,gone"));
        const QString& field = rows.lines()[0][0];
        kept = QString(field.constData(), field.size());
    }
    EXPECT_EQ(kept, QStringLiteral("kept"));
}

TEST(CsvLines, Changing_a_copy_of_a_field_leaves_the_field) {
    csv::Rows rows;
    ASSERT_TRUE(rows.read("abc,def"));
    QString copy = rows.lines()[0][0];
    copy[0] = QLatin1Char('X');
    copy += QStringLiteral("more");
    EXPECT_EQ(rows.lines()[0][0], QStringLiteral("abc"));
    EXPECT_EQ(rows.lines()[0][1], QStringLiteral("def"));
}

}  // namespace
