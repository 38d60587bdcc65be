// The drag loop of jigs.
//
// The cursor's moves and the picks come as input like everything else, so that a script drags as a hand does: its pick
// is a move to the point and a press there.

#include "kd/ed/jig.h"

#include "host/db/currentspace.h"
#include "host/ed/commandline.h"
#include "host/ed/display.h"
#include "host/ed/editor.h"
#include "host/ed/points.h"
#include "kd/db/entity.h"

KDRX_DEFINE_MEMBERS(KdEdJig, KdRxObject)

namespace {

using kdhost::Answer;
using kdhost::Editor;

constexpr double kSamePoint = 1e-10;

/// Keeps what the jig drags on the screen for the time of the drag.
class Dragging {
public:
    explicit Dragging(const KdEdJig& jig) { kdhost::setDraggedEntity(jig.entity()); }
    ~Dragging() { kdhost::setDraggedEntity(nullptr); }
    Dragging(const Dragging&) = delete;
    Dragging& operator=(const Dragging&) = delete;
};

}  // namespace

KdEdImpJig::~KdEdImpJig() = default;

struct KdEdJig::Impl : KdEdImpJig {
    void addAcquireInputControls(unsigned added) override { controls |= added; }

    std::wstring prompt;
    std::wstring keywords;
    unsigned controls = 0;
    KdGePoint3d cursor;    ///< in world coordinates
    KdGePoint3d acquired;  ///< the cursor as it was told last
    bool wasAcquired = false;
    bool picked = false;  ///< the cursor stands where the user picked
};

KdEdJig::KdEdJig() : m_impl(std::make_unique<Impl>()) {}
KdEdJig::~KdEdJig() = default;

KdEdJig::DragStatus KdEdJig::sampler() {
    return kNormal;
}
bool KdEdJig::update() {
    return false;
}
KdDbEntity* KdEdJig::entity() const {
    return nullptr;
}
void* KdEdJig::dimData(double) {
    return nullptr;
}
int KdEdJig::setDimValue(const void*, double) {
    return 0;
}

void KdEdJig::setDispPrompt(const wchar_t* prompt) {
    m_impl->prompt = prompt == nullptr ? L"" : prompt;
}
void KdEdJig::setKeywordList(const wchar_t* keywords) {
    m_impl->keywords = keywords == nullptr ? L"" : keywords;
}
void KdEdJig::setUserInputControls(unsigned controls) {
    m_impl->controls = controls;
}
KdEdImpJig* KdEdJig::implementation() const {
    return m_impl.get();
}

KdEdJig::DragStatus KdEdJig::acquirePoint(KdGePoint3d& point) {
    Impl& impl = *m_impl;
    const bool moved = !impl.wasAcquired || !impl.cursor.isEqualTo(impl.acquired, kSamePoint);
    point = impl.acquired = impl.cursor;
    impl.wasAcquired = true;
    return moved || impl.picked ? kNormal : kNoChange;
}

/// Whether the loop takes the status for a sample like any other.
static bool goesOn(KdEdJig::DragStatus status) {
    return status == KdEdJig::kNormal || status == KdEdJig::kNoChange;
}

/// The jig samples the cursor's new place, and is brought up to date when that changes something.
static KdEdJig::DragStatus followCursor(KdEdJig& jig) {
    const KdEdJig::DragStatus status = jig.sampler();
    if (status == KdEdJig::kNormal && jig.update()) {
        kdhost::queueAllForRedraw();
        kdhost::updateDisplay();
    }
    return status;
}

KdEdJig::DragStatus KdEdJig::drag() {
    Editor* editor = kdhost::currentEditor();
    if (editor == nullptr) return kModeless;
    const Dragging dragging(*this);
    Impl& impl = *m_impl;
    for (;;) {
        editor->announce(0, impl.keywords);
        const Editor::Announcement announced = editor->takeAnnouncement();
        const Answer answer = editor->ask(kdhost::PromptKind::Drag, impl.prompt);
        if (answer.kind == Answer::Kind::End) return kModeless;
        if (answer.isCancel()) return kCancel;
        std::optional<KdGePoint3d> picked;
        if (answer.isPick()) {
            picked = answer.point;
        } else if (answer.kind == Answer::Kind::Text) {
            if (answer.text.empty()) return kNull;
            if (const auto word = announced.keywords.match(answer.text)) {
                editor->chosenKeyword() = *word;
                return kKeyword;
            }
            const auto point = kdhost::parsePoint(answer.text, editor->lastPoint());
            if (!point) {
                kdhost::commandLine().write(kdhost::kPointNeeded.text());
                continue;
            }
            picked = editor->toWorld(*point);
        }
        impl.cursor = picked.value_or(answer.point);
        DragStatus status = followCursor(*this);
        if (picked && goesOn(status)) {
            impl.picked = true;
            status = followCursor(*this);
            impl.picked = false;
        }
        if (!goesOn(status)) return status;
        if (!picked) continue;
        editor->lastPoint() = editor->toUser(*picked);
        return kNormal;
    }
}

KdDbObjectId KdEdJig::append() {
    KdDbEntity* appended = entity();
    const Editor* editor = kdhost::currentEditor();
    if (appended == nullptr || editor == nullptr) return {};
    return kdhost::appendToCurrentSpace(editor->database(), *appended);
}
