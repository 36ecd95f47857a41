#include "node_types.h"

#include <QHash>

namespace host {

namespace {

const QHash<QString, QStringList>& hierarchy() {
    static const QHash<QString, QStringList> table = [] {
        const QStringList dag{"containerBase", "entity", "dagNode"};
        const QStringList shape = dag + QStringList{"shape"};
        const QStringList deformable = shape + QStringList{"controlPoint", "deformableShape"};
        const QStringList surface{"containerBase", "entity",       "dagNode",        "shape",
                                  "surfaceShape",  "controlPoint", "deformableShape"};
        QHash<QString, QStringList> t;
        t.insert("transform", dag + QStringList{"transform"});
        t.insert("joint", dag + QStringList{"transform", "joint"});
        t.insert("ikHandle", dag + QStringList{"transform", "ikHandle"});
        t.insert("mesh", surface + QStringList{"mesh"});
        t.insert("nurbsSurface", surface + QStringList{"nurbsSurface"});
        t.insert("nurbsCurve", deformable + QStringList{"curveShape", "nurbsCurve"});
        t.insert("locator", shape + QStringList{"locator"});
        t.insert("camera", shape + QStringList{"camera"});
        for (const char* curve : {"animCurveTL", "animCurveTA", "animCurveTU", "animCurveTT",
                                  "animCurveUL", "animCurveUA", "animCurveUU", "animCurveUT"})
            t.insert(curve, {"animCurve", curve});
        return t;
    }();
    return table;
}

} // namespace

QStringList type_inheritance(const QString& type) {
    return hierarchy().value(type, QStringList{type});
}

bool is_a(const QString& type, const QString& base) {
    if (type == base)
        return true;
    const auto it = hierarchy().constFind(type);
    return it != hierarchy().constEnd() && it->contains(base);
}

bool is_shape(const QString& type) {
    return is_a(type, QStringLiteral("shape"));
}

bool is_transform(const QString& type) {
    // Asked for every attribute lookup: the common answers first.
    if (type == QLatin1String("transform") || type == QLatin1String("joint"))
        return true;
    return is_a(type, QStringLiteral("transform"));
}

bool is_time_curve(const QString& type) {
    return type.size() == 11 && type.startsWith(QLatin1String("animCurveT"));
}

} // namespace host
