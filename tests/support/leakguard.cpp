// The watch over each test's end.

#include "tests/support/leakguard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "host/db/access.h"
#include "host/rx/faults.h"
#include "mfc/resource.h"

namespace kdtest {
namespace {

struct Allowance {
    int openObjects = 0;
    std::vector<std::string> breaches;
};
Allowance allowance;

std::string narrow(const std::wstring& text) {
    return {text.begin(), text.end()};
}

class LeakGuard : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo&) override {
        allowance = {};
        m_openBefore = kdhost::openObjects().size();
        m_handleBefore = AfxGetResourceHandle();
        kdhost::takeDisciplineBreaches();
    }

    void OnTestEnd(const ::testing::TestInfo&) override {
        kdhost::faults() = {};
        checkOpenObjects();
        checkBreaches();
        EXPECT_EQ(AfxGetResourceHandle(), m_handleBefore) << "the test leaves another resource handle";
    }

    void checkOpenObjects() const {
        const std::vector<kdhost::OpenObject> open = kdhost::openObjects();
        if (open.size() == m_openBefore + static_cast<std::size_t>(allowance.openObjects)) return;
        std::string list;
        for (const kdhost::OpenObject& object : open) list += " " + narrow(object.className);
        ADD_FAILURE() << "objects left open:" << list << ", allowed: " << allowance.openObjects;
    }

    static void checkBreaches() {
        for (const std::wstring& breach : kdhost::takeDisciplineBreaches()) {
            const std::string text = narrow(breach);
            auto expected = std::find_if(allowance.breaches.begin(), allowance.breaches.end(),
                                         [&](const std::string& part) { return text.find(part) != text.npos; });
            if (expected == allowance.breaches.end()) {
                ADD_FAILURE() << "breach of the open discipline: " << text;
            } else {
                allowance.breaches.erase(expected);
            }
        }
        for (const std::string& part : allowance.breaches) ADD_FAILURE() << "no breach came that tells: " << part;
    }

    std::size_t m_openBefore = 0;
    HINSTANCE m_handleBefore = nullptr;
};

}  // namespace

void installLeakGuard() {
    ::testing::UnitTest::GetInstance()->listeners().Append(new LeakGuard);
}

void allowOpenObjects(int count) {
    allowance.openObjects = count;
}

void expectDisciplineBreach(const std::string& part) {
    allowance.breaches.push_back(part);
}

}  // namespace kdtest
