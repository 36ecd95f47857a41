#pragma once
// Keys on plugs. A keyed plug is driven by an animation curve node named and connected as
// Maya makes them ("pCube1_translateX", animCurveTL for distances, animCurveTA for angles,
// animCurveTU for the rest). A curve's value is linear between keys, held after a stepped
// key, and constant before the first key and after the last.
#include "attribute_data.h"
#include "attributes.h"

#include <QString>
#include <functional>

namespace host {

class scene;

// Maya's tangent type numbers, as files store them.
enum tangent_type : quint8 {
    tangent_linear = 2,
    tangent_step = 5,
    tangent_step_next = 10,
};

double curve_value(const anim_curve& c, double time);
QString curve_type_for(const attribute_def& definition);
// The curve node that drives a plug, or -1.
int driving_curve(const scene& s, const plug& p);
// Connects a curve node to a plug; a curve that drove it before is left unconnected.
bool connect_curve(scene& s, int curve, const plug& p);
// Keys a plug at `time`, making, naming and connecting its curve when it has none. Without
// tangent types a number's keys are linear and a switch's keys step. Returns the curve
// node, or -1.
int set_key(scene& s, const plug& p, double time, double value, int in_tangent = -1,
            int out_tangent = -1);
// Inserts or replaces a key of a curve, keeping keys sorted by time; a time that is no
// finite number is left out.
void insert_key(anim_curve& c, const anim_key& key);
// Removes the keys `doomed` picks (by index and key). A curve left without keys is
// deleted, and its plug keeps the value the curve gave it. Returns how many keys went.
int remove_keys(scene& s, int curve, const std::function<bool(int, const anim_key&)>& doomed);
// Moves the time (to a finite one): every plug follows its curve again.
void set_current_time(scene& s, double time);

} // namespace host
