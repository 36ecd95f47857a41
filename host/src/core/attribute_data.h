#pragma once
// What a node stores besides its name: attribute values and their states, user-defined
// attributes, and for animation curves their keys. Plain data; attributes.h and
// anim_curves.h hold the rules.
#include <QHash>
#include <QPair>
#include <QString>
#include <QVarLengthArray>
#include <QVector>

namespace host {

enum class attribute_kind : quint8 { number, integer, boolean, enumeration, string, compound };

// The description of one attribute: a built-in one of the node's type or one from addAttr.
struct attribute_def {
    QString long_name;
    QString short_name;
    QString nice_name; // empty: derived from the long name
    QString type;      // as getAttr -type gives it: "doubleLinear", "enum", "double3", ...
    attribute_kind kind = attribute_kind::number;
    int parent = -1;       // index of the compound that holds it
    QVector<int> children; // indices of a compound's children
    bool keyable = false;  // keyable when created
    bool user = false;
    double default_value = 0;
    bool has_min = false;
    bool has_max = false;
    double min = 0;
    double max = 0;
    QVector<QPair<QString, int>> fields; // an enum's names and values
};

// The state of one attribute on one node. Compounds keep nothing here: their children do.
struct plug_value {
    double number = 0;
    QString text;
    bool locked = false;
    bool keyable = false;
    bool channel_box = false; // shown in the channel box though not keyable
};

// A node's attribute states, made on first use: the built-ins of its type first, then the
// user attributes in the order they were added. A transform's states fit in place, so a
// node costs one allocation.
struct node_attributes {
    QVector<attribute_def> user;
    QHash<QString, int> user_names; // long and short names -> position in `user`
    QVarLengthArray<plug_value, 13> values;
    QHash<QString, int> curves; // long name -> the animation curve node that drives it
};

// One key of an animation curve. Tangent types are Maya's numbers (2 linear, 5 step,
// 18 auto, ...); 0xff means the file did not give one.
struct anim_key {
    double time = 0;
    double value = 0;
    quint8 in_tangent = 0xff;
    quint8 out_tangent = 0xff;
};

// The data of an animCurveTL/TA/TU/TT node and the plug it drives.
struct anim_curve {
    QVector<anim_key> keys; // sorted by time
    int tangent_type = 18;  // the curve's ".tan"
    bool weighted = false;
    int target = -1;          // the driven node, -1 when unconnected
    QString target_attribute; // its long name
};

// The time slider: the current frame and the playback and animation ranges.
struct time_state {
    double current = 1;
    double min = 1;
    double max = 120;
    double start = 1;
    double end = 200;
};

} // namespace host
