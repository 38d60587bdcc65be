// The main application service and the main window.

#include "kd/ad/mainapp.h"

#include <QWidget>
#include <cmath>

#include "host/db/undo.h"
#include "host/ed/display.h"
#include "host/rx/faults.h"
#include "kd/ed/coordinates.h"
#include "kd/ed/view.h"
#include "tests/support/application.h"
#include "tests/support/configfolder.h"
#include "tests/support/leakguard.h"
#include "tests/support/objects.h"
#include "win32/registry.h"

namespace {

using Names = std::vector<std::wstring>;

class MainApp : public kdtest::ApplicationTest {
protected:
    KdadMainAppService& service() { return *vqcadMainAppService(); }
    static Names steps(kdhost::Document& document) { return kdhost::undoHistory(*document.database())->undoSteps(); }

    kdtest::ConfigFolder m_folder;
};

TEST_F(MainApp, a_mark_is_a_step_of_the_active_drawing_with_its_fixed_name) {
    service().beginCommandMark(L"AboveInsert", L"Insert above");
    kdtest::appendLine(host.database());
    service().endCommandMark();
    EXPECT_EQ(steps(host.document()), Names{L"AboveInsert"});
}

TEST_F(MainApp, marks_inside_marks_join_and_an_empty_one_is_no_step) {
    service().beginCommandMark(L"Outer", L"");
    service().beginCommandMark(L"Inner", L"");
    kdtest::appendLine(host.database());
    service().endCommandMark();
    service().endCommandMark();
    service().beginCommandMark(L"Empty", L"");
    service().endCommandMark();
    service().endCommandMark();
    EXPECT_EQ(steps(host.document()), Names{L"Outer"});
}

TEST_F(MainApp, a_mark_without_a_name_is_a_step_all_the_same) {
    service().beginCommandMark(nullptr, L"");
    kdtest::appendLine(host.database());
    service().endCommandMark();
    EXPECT_EQ(steps(host.document()), Names{kdhost::kUnnamedStep});
}

TEST_F(MainApp, a_mark_ends_in_the_drawing_in_which_it_began) {
    kdhost::Document& first = host.document();
    service().beginCommandMark(L"First", L"");
    kdtest::appendLine(*first.database());
    kdhost::Document& second = host.documents().openNew();
    service().beginCommandMark(L"Second", L"");
    kdtest::appendLine(*second.database());
    service().endCommandMark();
    service().endCommandMark();
    EXPECT_EQ(steps(first), Names{L"First"});
    EXPECT_EQ(steps(second), Names{L"Second"});
}

TEST_F(MainApp, a_mark_may_outlive_its_drawing) {
    service().beginCommandMark(L"Mark", L"");
    host.documents().close(host.document());
    service().endCommandMark();
    kdtest::expectDisciplineBreach("a mark was left open when its drawing was deleted");
    service().beginCommandMark(L"Nowhere", L"");
    service().endCommandMark();
}

TEST_F(MainApp, a_cancelled_dialog_has_the_views_painted_afresh) {
    struct Screen : kdhost::Display {
        Screen() { kdhost::setDisplay(this); }
        ~Screen() override { kdhost::setDisplay(nullptr); }
        void redraw(const std::vector<KdDbObjectId>& ids) override { redrawn.push_back(ids); }
        std::vector<std::vector<KdDbObjectId>> redrawn;
    };
    kdhost::updateDisplay();
    Screen screen;
    kdtest::appendLine(host.database());
    service().dialogCancelled();
    EXPECT_EQ(screen.redrawn, std::vector<std::vector<KdDbObjectId>>{{}}) << "once, and all of it";
    EXPECT_TRUE(kdhost::queuedForRedraw().empty());
}

TEST_F(MainApp, points_go_from_user_to_world_coordinates) {
    host.editor().setUcs(KdGeMatrix3d::translation({10.0, 20.0, 0.0}));
    KdGePoint3d point(1.0, 2.0, 3.0);
    service().toWorld(point);
    EXPECT_EQ(point, KdGePoint3d(11.0, 22.0, 3.0));
}

TEST_F(MainApp, pixels_of_the_view_become_user_coordinates_and_through_the_service_world_ones) {
    host.editor().setUcs(KdGeMatrix3d::translation({10.0, 20.0, 0.0}));
    KdGePoint3d world(100.0, 50.0, 0.0);
    KdGePoint3d pixels = world;
    kdadGetActiveGsView()->getKdadViewport()->worldToScreen(pixels);
    const KdGePoint3d whole(std::round(pixels.x), std::round(pixels.y), 0.0);
    world = whole;
    kdadGetActiveGsView()->getKdadViewport()->screenToWorld(world);

    KdGePoint3d point;
    ASSERT_TRUE(kdedCoordFromPixelToWorldInternal(static_cast<int>(whole.x), static_cast<int>(whole.y), point));
    EXPECT_NEAR(point.x, world.x - 10.0, 1e-9);
    EXPECT_NEAR(point.y, world.y - 20.0, 1e-9);
    service().toWorld(point);
    EXPECT_NEAR(point.x, world.x, 1e-9);
    EXPECT_NEAR(point.y, world.y, 1e-9);
    EXPECT_EQ(point.z, 0.0);
}

TEST_F(MainApp, without_a_view_pixels_have_no_point) {
    kdhost::faults().noView = true;
    KdGePoint3d point(1.0, 2.0, 3.0);
    EXPECT_FALSE(kdedCoordFromPixelToWorldInternal(5, 5, point));
    EXPECT_EQ(point, KdGePoint3d(1.0, 2.0, 3.0));
}

TEST_F(MainApp, the_indicator_colour_is_a_readable_grey_blue_until_it_is_set) {
    KdCmColor color;
    ASSERT_TRUE(service().tableIndicatorColor(color));
    EXPECT_TRUE(color.isByColor());
    EXPECT_GT(color.blue(), color.green());
    EXPECT_GT(color.green(), color.red());
    EXPECT_GT(color.red(), 128) << "dark letters stand on it";
}

TEST_F(MainApp, the_indicator_colour_is_kept_in_the_profile_whatever_its_kind) {
    for (const KdCmColor& set : {KdCmColor::fromRgb(1, 2, 3), KdCmColor::fromIndex(5), KdCmColor::fromIndex(255),
                                 KdCmColor(), KdCmColor::byBlock(), KdCmColor::none()}) {
        service().setTableIndicatorColor(set);
        KdCmColor color = KdCmColor::fromIndex(1);
        EXPECT_TRUE(service().tableIndicatorColor(color));
        EXPECT_EQ(color, set);
    }
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\KdHost\\Profiles\\Default", 0, KEY_READ, &key),
              ERROR_SUCCESS);
    EXPECT_EQ(RegQueryValueExW(key, L"TableIndicatorColor", nullptr, nullptr, nullptr, nullptr), ERROR_SUCCESS);
    RegCloseKey(key);
}

TEST_F(MainApp, an_indicator_colour_that_is_none_is_not_read) {
    service().setTableIndicatorColor(KdCmColor::fromIndex(5));
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\KdHost\\Profiles\\Default", 0, KEY_WRITE, &key),
              ERROR_SUCCESS);
    const auto refuses = [&](DWORD type, const std::vector<BYTE>& bytes) {
        RegSetValueExW(key, L"TableIndicatorColor", 0, type, bytes.data(), static_cast<DWORD>(bytes.size()));
        KdCmColor color = KdCmColor::fromIndex(1);
        return !service().tableIndicatorColor(color) && color == KdCmColor::fromIndex(1);
    };
    EXPECT_TRUE(refuses(REG_SZ, {65, 0, 0, 0}));
    EXPECT_TRUE(refuses(REG_DWORD, {1, 2, 3}));
    EXPECT_TRUE(refuses(REG_BINARY, {1, 2, 3, 4, 5}));
    EXPECT_TRUE(refuses(REG_DWORD, {1, 2, 3, 17})) << "no way of giving a colour";
    EXPECT_TRUE(refuses(REG_DWORD, {0, 0, 0, KdCmEntityColor::kByACI})) << "index 0 is by block";
    RegCloseKey(key);
}

TEST_F(MainApp, the_service_can_be_missing) {
    kdhost::faults().noMainAppService = true;
    EXPECT_EQ(vqcadMainAppService(), nullptr);
}

TEST_F(MainApp, there_is_a_hidden_main_window) {
    ASSERT_NE(kfsw_kdadMainWnd(), nullptr);
    EXPECT_TRUE(kfsw_kdadMainWnd()->isWindow());
    EXPECT_FALSE(kfsw_kdadMainWnd()->isVisible());
}

TEST(MainAppBeforeTheStart, there_is_neither_service_nor_window) {
    EXPECT_EQ(vqcadMainAppService(), nullptr);
    EXPECT_EQ(kfsw_kdadMainWnd(), nullptr);
}

}  // namespace
