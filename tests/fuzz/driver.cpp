// Calls every fuzz target with a fixed number of seeded inputs: raw bytes, letters of the target's kind of text, and
// texts of every accepted form with a few bytes changed.

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

// The build gives each target's function a name of its own and lists the names here.
#define KD_TARGET(name) extern "C" int fuzz_##name(const std::uint8_t* data, std::size_t size);
KD_FUZZ_TARGETS
#undef KD_TARGET

namespace {

struct Target {
    const char* name;
    int (*run)(const std::uint8_t* data, std::size_t size);
};
#define KD_TARGET(name) {#name, fuzz_##name},
constexpr Target targets[] = {KD_FUZZ_TARGETS};
#undef KD_TARGET

constexpr int inputs = 200000;

/// What the texts of a target are made of.
struct Vocabulary {
    std::string alphabet;
    std::vector<std::string> texts;
};
Vocabulary vocabularyOf(const std::string& target);

class Inputs {
public:
    Inputs(const Vocabulary& vocabulary, unsigned seed)
        : m_random(seed), m_alphabet(vocabulary.alphabet), m_texts(vocabulary.texts) {}

    std::string next() {
        switch (below(4)) {
            case 0:
                return letters([&] { return static_cast<char>(below(256)); });
            case 1:
                return letters([&] { return m_alphabet[below(m_alphabet.size())]; });
            default:
                return changed(m_texts[below(m_texts.size())]);
        }
    }

private:
    std::size_t below(std::size_t limit) { return m_random() % limit; }

    template <class Letter>
    std::string letters(Letter letter) {
        // Now and then a text longer than any buffer of a field.
        std::string text(below(1000) == 0 ? below(3000) : below(20), ' ');
        for (char& character : text) character = letter();
        return text;
    }

    std::string changed(std::string text) {
        for (std::size_t changes = below(4); changes > 0; --changes) {
            const std::size_t at = below(text.size() + 1);
            const char letter = below(3) == 0 ? static_cast<char>(below(256)) : m_alphabet[below(m_alphabet.size())];
            switch (below(3)) {
                case 0:
                    text.insert(at, 1, letter);
                    break;
                case 1:
                    if (at < text.size()) text.erase(at, 1);
                    break;
                default:
                    if (at < text.size()) text[at] = letter;
            }
        }
        return text;
    }

    std::mt19937 m_random;
    const std::string m_alphabet;
    const std::vector<std::string> m_texts;
};

const Vocabulary numbersAndAngles = {"0123456789012345678901234567890123456789....''\"\"//--++  eEdDgGrRnNsSwW\x80",
                                     {
                                         "12",
                                         "12.5",
                                         ".5",
                                         "1e3",
                                         "1.5e-2",
                                         "5'",
                                         "5'3\"",
                                         "5'-3 1/2\"",
                                         "3-1/2",
                                         "3/4",
                                         "5.5'",
                                         "45d30'15\"",
                                         "45",
                                         "-45.25",
                                         "100g",
                                         "1.5r",
                                         "N 45d W",
                                         "S45d30'W",
                                         "E",
                                         "W",
                                         "45\x80",
                                         "007.50",
                                         "+007",
                                         " 45d30'W",
                                         "2147483647",
                                         " 30.5' w",
                                         "  12.5\t",
                                         "1e99",
                                         "5'3.5\"",
                                         ("N 45\x80"
                                          "30' W"),
                                     }};

const Vocabulary formulas = {"AB12.($:,)+-*/^ Sum#eE\x83\x84",
                             {
                                 "1+2*3",
                                 "(1.5+.5)/-2^2",
                                 "--3^-1^2",
                                 "1e3-2E-1*1e+2",
                                 "Sum(1,2,(3))",
                                 "average(COUNT(1,2),4)",
                                 "Sum(A1:B2)*2",
                                 "$A$1+b$2/C3",
                                 "Sum ( A1 : A3 , 1 )",
                                 "Table(12).A1",
                                 "count( table( 7 ) . A1:B2 )",
                                 "#REF!+1",
                                 "Sum(#REF!)",
                                 "%<\\_FldIdx 0>%*2",
                                 "\\AcExpr (1+1)*\\AcExpr(2)",
                                 "1/0",
                                 "10^400",
                                 "1e999",
                                 "AA100:A1",
                                 "A1000000000",
                                 "(((((1)))))",
                             }};

const Vocabulary fieldCodes = {"\\AcExpr ()AB12:+%<_FldIdx0>f\"lu2pr[],#$",
                               {
                                   "\\AcExpr (A1+1)",
                                   "\\AcExpr (Sum(A1:C3)) \\f \"%lu2%pr2\"",
                                   "\\AcExpr (B2)",
                                   "\\AcExpr (%<\\_FldIdx 0>%*2)",
                                   "\\AcExpr (A1 \\f \"%ps[(,)]\")",
                                   "\\AcExpr (\\AcExpr (A1)*2)",
                                   "\\AcExpr (#REF!+A1)",
                                   "\\AcExpr (Table(1).A1)",
                                   "\\AcExpr (B1) \\f \"%tc1\"",
                                   "\\AcExpr (A1/3) \\f \"%lu5%pr3%th[,]%zs8\"",
                                   "\\AcExpr (1) \\f \"%ct8[1e308]\"",
                                   "\\AcExpr (0.5) \\f \"%au1%pr4\"",
                                   "\\AcExpr (7) \\f \"%td[yyyy]\"",
                                   "total %<\\_FldIdx 0>% of %<\\_FldIdx 1>%",
                                   "%<\\_FldIdx 0>%",
                                   "\\AcVar Date",
                                   "plain text",
                                   "A1:",
                               }};

const Vocabulary formattedTexts = {"ab \\\\\\{}%;/^#~PLlOoKkHWQTACcFfpSUM+019.x,|\n\t\x83\x84",
                                   {
                                       "plain text",
                                       "a\\Pb\\~c",
                                       "{\\H2x;big} \\W0.8;\\Q15;\\T2;x",
                                       "{\\C1;red}{\\c255;also}",
                                       "{\\fArial|b1|i1|c0|p34;bold}",
                                       "{\\Ftxt.shx,gbcbig.shx;file}",
                                       "\\Lunder\\l\\Oover\\o\\Kthrough\\k",
                                       "\\A1;\\S1/2; \\S1#2; \\S+0.1^-0.2; x\\S2^;",
                                       "\\Sa\\/b\\;c/d;",
                                       "\\pi-2,l4,r1,qc,sm1,t4,8;x\tz\\Py",
                                       "\\pxqr;right",
                                       "90%%d %%p0.1 %%c20 %%065 5%%%",
                                       "\\U+4E2D\\M+5D6D0\\U+D83D\\U+DE00",
                                       "\\{not a group\\}\\\\",
                                       "{a{b}c",
                                       "a}b",
                                       "one two three four five six seven",
                                       "first\nsecond\r\nthird\n",
                                       "\\H0.0001;\\H10000x;\\H10000x;x",
                                   }};

const Vocabulary drawings = {"0123456789\n\n-.ABCDEF ",
                             {
                                 "\n0\nLINE\n5\nABC\n330\n1F\n100\nAcDbEntity\n8\n0\n",
                                 "\n171\n1\n172\n0\n",
                                 "\n91\n1000000000\n92\n1\n",
                                 "\n91\n3\n92\n2\n",
                                 "\n301\nCELL_VALUE\n93\n0\n90\n4\n",
                                 "\n304\nACVALUE_END\n",
                                 "\n0\nENDSEC\n0\nSECTION\n2\nOBJECTS\n",
                                 "\n0\nENDTAB\n",
                                 "\n0\nBLOCK\n5\nFF\n",
                                 "\n0\nEOF\n",
                                 "\n102\n{ACAD_XDICTIONARY\n360\n30\n102\n}\n",
                                 "\n342\n14\n343\n1E\n",
                                 "\n3\nKDHOST_EXTRAS\n360\n20\n",
                                 "\n300\nCELLS\n90\n1\n90\n0\n90\n0\n160\n-1\n90\n15\n",
                                 "\n300\nFORMATS\n90\n2\n160\n255\n",
                                 "\n175\n2\n176\n2\n",
                                 "\n1\n^J^ \n",
                                 "\n40\n1e308\n",
                                 "\n1001\nACAD\n1000\nx\n1071\n1\n",
                             }};

Vocabulary vocabularyOf(const std::string& target) {
    if (target == "drawing") return drawings;
    if (target == "formula") return formulas;
    if (target == "fieldcode") return fieldCodes;
    if (target == "mtext") return formattedTexts;
    return numbersAndAngles;
}

class EveryTarget : public ::testing::TestWithParam<Target> {};

TEST_P(EveryTarget, stands_seeded_inputs) {
    Inputs random(vocabularyOf(GetParam().name), 20240229);
    // A drawing takes as long as many texts.
    const int count = std::string(GetParam().name) == "drawing" ? inputs / 10 : inputs;
    for (int number = 0; number < count; ++number) {
        const std::string input = random.next();
        ASSERT_EQ(GetParam().run(reinterpret_cast<const std::uint8_t*>(input.data()), input.size()), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Fuzz, EveryTarget, ::testing::ValuesIn(targets),
                         [](const auto& target) { return std::string(target.param.name); });

}  // namespace
