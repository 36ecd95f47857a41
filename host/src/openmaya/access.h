#pragma once
// The host's way into the private parts of the API's value classes.
#include <maya/MArgList.h>
#include <maya/MObject.h>
#include <maya/MSelectionList.h>

#include <QString>
#include <QStringList>

struct MArgListAccess {
    static void add(MArgList& list, const MString& text) {
        MArgList::item it;
        it.text = text;
        list.items_.push_back(it);
    }
    static void add_array(MArgList& list, const MStringArray& array) {
        MArgList::item it;
        it.is_array = true;
        it.array = array;
        list.items_.push_back(it);
    }
};

struct MSelectionListAccess {
    static void set(MSelectionList& list, const QStringList& names) {
        list.items_.clear();
        for (const QString& n : names)
            list.items_.push_back(MString(n.toUtf8().constData()));
    }
};

struct MObjectAccess {
    static MObject make(void* handle) {
        MObject o;
        o.handle_ = handle;
        return o;
    }
    static void* handle(const MObject& o) { return o.handle_; }
};
