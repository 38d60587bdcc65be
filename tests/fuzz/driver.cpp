// Calls every fuzz target with a fixed number of seeded inputs: raw bytes, letters of numbers and angles, and texts
// of every accepted form with a few bytes changed.

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

class Inputs {
public:
    explicit Inputs(unsigned seed) : m_random(seed) {}

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
    const std::string m_alphabet = "0123456789012345678901234567890123456789....''\"\"//--++  eEdDgGrRnNsSwW\x80";
    const std::vector<std::string> m_texts = {
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
        "N 45\x80"
        "30' W",
    };
};

class EveryTarget : public ::testing::TestWithParam<Target> {};

TEST_P(EveryTarget, stands_seeded_inputs) {
    Inputs random(20240229);
    for (int number = 0; number < inputs; ++number) {
        const std::string input = random.next();
        ASSERT_EQ(GetParam().run(reinterpret_cast<const std::uint8_t*>(input.data()), input.size()), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Fuzz, EveryTarget, ::testing::ValuesIn(targets),
                         [](const auto& target) { return std::string(target.param.name); });

}  // namespace
