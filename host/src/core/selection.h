#pragma once
// The active selection: an ordered list of nodes and component sets.
#include <QString>
#include <QStringList>
#include <QVector>

namespace host {

class scene;

class selection {
public:
    enum class adjust { replace, add, remove, toggle };

    explicit selection(const scene& s) : scene_(s) {}

    // Resolves each name (a node name, a path, a wildcard pattern, or a component such
    // as "pCube1.vtx[0:3]") and applies them with `how`. A name that matches nothing
    // fails the whole call, leaving the selection as it was; `error` tells why.
    bool select(const QStringList& names, adjust how, QString* error = nullptr);
    void clear() { items_.clear(); }
    // The items' names, in order: a node's shortest unique name plus a component part.
    QStringList names() const;
    bool empty() const { return items_.isEmpty(); }
    // Drops items whose node no longer lives; true when any went.
    bool prune();

private:
    struct item {
        int node;
        QString component; // ".vtx[0:3]" or empty
        bool operator==(const item& o) const { return node == o.node && component == o.component; }
    };
    bool resolve(const QString& name, QVector<item>& out, QString* error) const;

    const scene& scene_;
    QVector<item> items_;
};

} // namespace host
