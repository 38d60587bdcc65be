// A drawing in memory that the tests of drawing fill and look at.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <memory>

#include "host/db/access.h"
#include "host/draw/paint.h"
#include "host/draw/primitives.h"
#include "host/draw/view.h"
#include "kd/db/blockreference.h"
#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/db/symboltable.h"
#include "tests/support/objects.h"

namespace kdtest {

/// On white paper of the view's size.
inline QImage painted(const kdhost::draw::Primitives& primitives, const kdhost::draw::View& view) {
    QImage image(static_cast<int>(view.widthPixels()), static_cast<int>(view.heightPixels()), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintPrimitives(painter, primitives, view, {});
    return image;
}

/// A fresh drawing. What is added is closed at once.
struct Drawing {
    KdDbDatabase database;

    KdDbObjectId add(std::unique_ptr<KdDbEntity> entity, KdDbObjectId block = {}) {
        return appendTo(block.isNull() ? database.modelSpaceId() : block, entity.release());
    }

    KdDbObjectId addBlock(const wchar_t* name) {
        return addRecord<KdDbBlockTableRecord>(database.blockTableId(), name);
    }

    KdDbObjectId addLayer(const wchar_t* name, const KdCmColor& color, KdDb::LineWeight weight = KdDb::kLnWt050) {
        return addRecord<KdDbLayerTableRecord>(database.layerTableId(), name, [&](KdDbLayerTableRecord& layer) {
            layer.setColor(color);
            layer.setLineWeight(weight);
        });
    }

    KdDbObjectId addLinetype(const wchar_t* name, std::vector<double> dashes) {
        return addRecord<KdDbLinetypeTableRecord>(
            database.linetypeTableId(), name,
            [&](KdDbLinetypeTableRecord& linetype) { linetype.setDashes(std::move(dashes)); });
    }

    kdhost::draw::Primitives primitives(const kdhost::draw::Options& options = {}) const {
        return kdhost::draw::primitivesOf(database, options);
    }
};

/// The primitives of one kind, in their order.
template <class Kind>
std::vector<Kind> only(const kdhost::draw::Primitives& primitives) {
    std::vector<Kind> result;
    for (const auto& primitive : primitives) {
        if (const Kind* kind = std::get_if<Kind>(&primitive)) result.push_back(*kind);
    }
    return result;
}

}  // namespace kdtest
