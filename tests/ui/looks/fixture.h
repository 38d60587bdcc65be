// The fixture of looks at dialogs: each test runs once in each language, and each window is kept as a picture.
#pragma once

#include "tests/support/resourcemodule.h"
#include "tests/ui/hostdialogs/fixture.h"
#include "tests/ui/looks/dialoglooks.h"

namespace kdtest {

class DialogLooks : public HostDialogTest, public ::testing::WithParamInterface<kdhost::Language> {
protected:
    DialogLooks() { kdhost::setLanguage(GetParam()); }

    bool isChinese() const { return GetParam() == kdhost::Language::Chinese; }

    void keep(QWidget& window, const char* name) const {
        keepPicture(window,
                    QStringLiteral("%1_%2").arg(QLatin1String(name), QLatin1String(isChinese() ? "zh_CN" : "en")));
    }
    /// A window as it stands now.
    void look(QWidget& window, const char* name) const {
        QApplication::processEvents();
        keep(window, name);
        EXPECT_EQ(cutControls(window), Faults()) << name;
        if (isChinese()) {
            EXPECT_EQ(untranslatedTexts(window), Faults()) << name;
        }
    }
    void lookAndReach(QWidget& window, const char* name) const {
        look(window, name);
        EXPECT_EQ(unreachableControls(window), Faults()) << name;
    }
    /// Looks at the dialog that comes next, and closes it.
    void lookAtNext(
        const char* name, const std::function<void(QWidget&)>& prepare = [](QWidget&) {}) {
        next([this, name, prepare](QWidget& dialog) {
            prepare(dialog);
            lookAndReach(dialog, name);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
    }

private:
    ResourceModule m_resources;
};

/// For INSTANTIATE_TEST_SUITE_P of classes derived from DialogLooks.
inline auto bothLanguages() {
    return ::testing::Values(kdhost::Language::English, kdhost::Language::Chinese);
}
inline std::string languageName(const ::testing::TestParamInfo<kdhost::Language>& language) {
    return language.param == kdhost::Language::English ? "English" : "Chinese";
}

}  // namespace kdtest
