#pragma once
// Maya's own lines for what nodes hold besides their names: addAttr and setAttr after a
// createNode, the keys of curves, their connectAttr, and the time.
#include <QString>
#include <functional>

namespace host {

class scene;

namespace ma {

// How the file names a node: its name, or its full path when the name repeats.
using node_namer = std::function<QString(int)>;

// The lines that follow a node's createNode.
void write_node_attributes(const scene& from, int id, QString& out);
// The time slider's ranges as Maya keeps them, in a script node of its own, when the
// scene has no such node and the ranges are not the defaults.
void write_time_settings_node(const scene& from, QString& out);
// "select -ne :time1" with the current time.
void write_current_time(const scene& from, QString& out);
// A connectAttr from each curve to the plug it drives.
void write_curve_connections(const scene& from, const node_namer& name_of, QString& out);

} // namespace ma
} // namespace host
