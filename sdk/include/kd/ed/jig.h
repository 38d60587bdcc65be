// Jigs: entities that follow the cursor while the user places them.
#pragma once

#include <memory>
#include <string>

#include "kd/db/objectid.h"
#include "kd/ge/point3d.h"
#include "kd/rx/object.h"

class KdDbEntity;
class KdEdJig;

/// The host's part of a jig.
class KdEdImpJig {
public:
    virtual ~KdEdImpJig();
    /// Adds bits to the controls of the next acquisition.
    virtual void addAcquireInputControls(unsigned controls) = 0;
};

class KdEdJig : public KdRxObject {
public:
    KDRX_DECLARE_MEMBERS(KdEdJig)

    /// How an acquisition, or the whole drag, ended.
    enum DragStatus : int {
        kNormal = 0,
        kModeless = -1,  ///< another command or the program's end took over
        kKeyword = -2,   ///< a keyword was typed; kdedGetInput tells which
        kCancel = -4,    ///< Esc
        kNull = -5,      ///< Enter
        kNoChange = -6,  ///< nothing moved: no update is needed
        kOther = -8,
    };

    KdEdJig();
    ~KdEdJig() override;

    /// One round of asking: the jig acquires what it needs now. The drag loop calls it for each move of the
    /// cursor and for the pick that ends it.
    virtual DragStatus sampler();
    /// Brings the entity up to date with what was sampled. False when nothing changed.
    virtual bool update();
    /// The entity that is dragged; it stays the jig's until it is appended.
    virtual KdDbEntity* entity() const;
    /// Dimensions shown at the cursor; none here.
    virtual void* dimData(double scale);
    virtual int setDimValue(const void* data, double value);

    /// Runs the loop of sampling, updating and drawing until the user picks a point (kNormal), answers in another
    /// way, or cancels. The status kNoChange of the sampler goes on with the loop.
    DragStatus drag();
    /// Puts the entity into the current space; the drawing owns it from now on and nobody has it open. The null
    /// id, with the entity as it was, when that fails.
    KdDbObjectId append();

    void setDispPrompt(const wchar_t* prompt);
    /// "local words _GLOBAL words", as kdedInitGet takes them.
    void setKeywordList(const wchar_t* keywords);
    void setUserInputControls(unsigned controls);
    /// The cursor's place in world coordinates. kNoChange when it didn't move since the last call.
    DragStatus acquirePoint(KdGePoint3d& point);

protected:
    /// Null while no drag has begun.
    KdEdImpJig* implementation() const;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};
