// The UCS command.

#include "host/app/commands/ucscommand.h"

#include <numbers>

#include "host/app/commands/keywordmenu.h"
#include "host/app/commands/valueprompts.h"
#include "host/db/usersystems.h"
#include "host/ed/editor.h"

namespace kdhost {
namespace {

constexpr KeywordPrompt kMenu{{L"\nOrigin or [World/Previous/Z] <World>: ", L"\n原点或 [世界(W)/上一个(P)/Z] <世界>: "},
                              {L"World Previous Z _World Previous Z", L"世界(W) 上一个(P) Z _World Previous Z"}};
constexpr Words kOnX{L"\nPoint on the x axis <as it is>: ", L"\nX 轴上的点 <不变>: "};
constexpr Words kOnY{L"\nPoint on the positive side of the y axis <as it is>: ", L"\nY 轴正侧的点 <不变>: "};
constexpr Words kAngle{L"\nAngle of rotation about the z axis in degrees <90>: ", L"\n绕 Z 轴旋转的角度 (度) <90>: "};
constexpr Words kNoSystem{L"The points lie on one line: there is no such coordinate system.",
                          L"各点在同一直线上，无法确定坐标系。"};
constexpr Words kNoEarlier{L"There is no earlier coordinate system.", L"没有上一个坐标系。"};

/// Carries out `change()`; the point entered last stays where it is in the world.
template <class Change>
void keepingLastPoint(Editor& editor, Change change) {
    const KdGePoint3d last = editor.toWorld(editor.lastPoint());
    change();
    editor.lastPoint() = editor.toUser(last);
}

void change(Editor& editor, const UserSystem& system) {
    keepingLastPoint(editor, [&] {
        if (changeUserSystem(editor.database(), system) != Kdad::eOk) commandLine().fail(kNoSystem.text());
    });
}

void turnAboutZ(Editor& editor) {
    const std::optional<double> degrees = askForNumber(kAngle, 90.0);
    if (!degrees) return;
    UserSystem system = userSystem(editor.database());
    const KdGeVector3d z = system.x.crossProduct(system.y);
    system.x.rotateBy(*degrees * std::numbers::pi / 180.0, z);
    system.y.rotateBy(*degrees * std::numbers::pi / 180.0, z);
    change(editor, system);
}

void goBack(Editor& editor) {
    keepingLastPoint(editor, [&] {
        if (!takeBackUserSystem(editor.database())) commandLine().fail(kNoEarlier.text());
    });
}

/// Without a point on the x axis only the origin moves; without one beside the y axis the plane is turned about the
/// new x axis as little as it can be.
void setByPoints(Editor& editor, const KdGePoint3d& origin) {
    UserSystem system = userSystem(editor.database());
    const KdGeVector3d z = system.x.crossProduct(system.y);
    system.origin = editor.toWorld(origin);
    KdGePoint3d onX;
    KdGePoint3d onY;
    const int statusX = kdedGetPoint(&origin, kOnX.text(), onX);
    if (statusX == RTCAN) return;
    if (statusX == RTNORM) {
        system.x = editor.toWorld(onX) - system.origin;
        const int statusY = kdedGetPoint(&origin, kOnY.text(), onY);
        if (statusY == RTCAN) return;
        system.y = statusY == RTNORM ? editor.toWorld(onY) - system.origin : z.crossProduct(system.x);
    }
    change(editor, system);
}

struct Action {
    const wchar_t* word;
    void (*run)(Editor& editor);
};

void setToWorld(Editor& editor) {
    change(editor, {});
}

constexpr Action kActions[] = {{L"World", setToWorld}, {L"Previous", goBack}, {L"Z", turnAboutZ}};

void runChosenWord(Editor& editor) {
    wchar_t word[132];
    kdedGetInput(word);
    if (const Action* action = actionOf(kMenu, kActions, word)) action->run(editor);
}

}  // namespace

void setUserCoordinates() {
    Editor& editor = *currentEditor();
    KdGePoint3d origin;
    kdedInitGet(0, kMenu.words.text());
    switch (kdedGetPoint(nullptr, kMenu.prompt.text(), origin)) {
        case RTNORM:
            return setByPoints(editor, origin);
        case RTKWORD:
            return runChosenWord(editor);
        case RTREJ:
            return setToWorld(editor);
        default:
            return;
    }
}

}  // namespace kdhost
