#pragma once
// Attributes of the scene's nodes: the built-ins of transforms and joints (translate,
// rotate, scale, visibility), user attributes from addAttr, plugs named "node.attr", and
// their values, locks and keyable states. A plug an animation curve drives gives the
// curve's value at the current time, unless it was set by hand since the time changed.
#include "attribute_data.h"

#include <QHash>
#include <QPair>
#include <QString>
#include <QVector>

namespace host {

class scene;

struct plug {
    int node = -1;
    int index = -1; // the node's built-ins first, then its user attributes
};

enum class plug_lookup { found, no_object, many_objects, no_attribute };

// "pCube1.tx", "|grp|pCube1.translateX", "pCube1.t.tx", "hero:arm.ikFk".
plug_lookup find_plug(const scene& s, const QString& text, plug& out);
// An attribute by long or short name, or as "compound.child"; -1 when the node has none.
int find_attribute(const scene& s, int node, const QString& name);
// The same for a name as a file spells it, without a "compound.child" path.
int find_attribute(const scene& s, int node, QLatin1String name);

int attribute_count(const scene& s, int node);
const attribute_def& attribute_at(const scene& s, int node, int index);
// The defaults until the node's attributes are first touched.
plug_value plug_state(const scene& s, const plug& p);
// "pCube1.translateX": the node's shortest unique name and the long attribute name.
QString plug_name(const scene& s, const plug& p);
// "Translate X", "Ik Fk Blend": the name the channel box shows.
QString nice_name(const attribute_def& definition);
// A number, not a string or a compound: what a key can drive.
bool is_scalar(const attribute_def& definition);

// Values at the current time. A compound gives its children's values.
double plug_number(const scene& s, const plug& p);
// At another time a keyed plug gives its curve's value there.
double plug_number_at(const scene& s, const plug& p, double time);
QVector<double> plug_numbers(const scene& s, const plug& p);
QString plug_text(const scene& s, const plug& p);
// The value a plug holds without its curve: what a file stores for it.
double stored_number(const scene& s, const plug& p);

// Edits as setAttr makes them. They return an empty text, or why they refuse
// (Maya's words, without the command's name).
QString set_number(scene& s, const plug& p, double v, bool clamp = false);
QString set_text(scene& s, const plug& p, const QString& v);
// The same without checks, for values read from a file.
void store_number(scene& s, const plug& p, double v);
void store_text(scene& s, const plug& p, const QString& v);
// A compound passes these on to its children.
void set_locked(scene& s, const plug& p, bool on);
void set_keyable(scene& s, const plug& p, bool on);
void set_channel_box(scene& s, const plug& p, bool on);

// Adds a user attribute at its default value; false with `error` when a name is taken.
bool add_attribute(scene& s, int node, attribute_def definition, QString* error);
// Removes a user attribute and the curve that drives it.
void delete_attribute(scene& s, const plug& p);
// Changes a user attribute's description (addAttr -edit), keeping its value in range.
void redefine_attribute(scene& s, const plug& p, const attribute_def& definition);

// addAttr's flags by long name ("longName", "attributeType", "minValue", ...) with their
// values as text; a flag without a value maps to an empty text.
using attribute_flags = QHash<QString, QString>;
// A new user attribute from addAttr's flags; false with `error` when its names or type are
// none this host keeps.
bool def_from_flags(const attribute_flags& flags, attribute_def* out, QString* error);
// The nice name, default, range, enum fields and keyable state among the flags.
void apply_flags(const attribute_flags& flags, attribute_def& definition);
// MEL's boolean words (on/off, yes/no, true/false) or a number; `ok` false for others.
bool text_bool(const QString& text, bool* ok = nullptr);

// An enum's "IK:FK" or "Off=0:On=5", and back.
QVector<QPair<QString, int>> parse_enum_fields(const QString& text);
QString enum_fields_text(const QVector<QPair<QString, int>>& fields);

} // namespace host
