#pragma once
// What the host knows of Maya's node type hierarchy: enough for nodeType -inherited,
// objectType -isAType, ls -type and listRelatives -type and -shapes.
#include <QString>
#include <QStringList>

namespace host {

// The types `type` derives from, the most general first, ending with `type` itself.
// An unknown type stands alone.
QStringList type_inheritance(const QString& type);
// `type` is `base` or derives from it.
bool is_a(const QString& type, const QString& base);
bool is_shape(const QString& type);
// Transforms, joints and the other transform types carry translate, rotate, scale and visibility.
bool is_transform(const QString& type);
// animCurveTL, animCurveTA, animCurveTU, animCurveTT: curves driven by time.
bool is_time_curve(const QString& type);

} // namespace host
