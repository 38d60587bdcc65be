// How prompts are answered that an action didn't foresee: the words of a menu one after the other, places, cells.
#pragma once

#include <string>

#include "host/ed/editor.h"
#include "tests/endurance/stand.h"
#include "tests/support/random.h"

namespace endurance {

class Prompts {
public:
    Prompts(Random& random, const Stand& stand) : m_random(random), m_stand(stand) {}

    /// The next line for the prompt that waits, as in a script.
    std::wstring next(const kdhost::Editor& editor);
    /// At the begin of each action.
    void forget();

private:
    Random& m_random;
    const Stand& m_stand;
    int m_answersLeft = 0;
};

}  // namespace endurance
