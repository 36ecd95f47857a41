#pragma once
// The scene: named nodes in a DAG, the namespace tree, fileInfo and the modified flag.
//
// Names: a node's name carries its namespace ("rig:face:jaw") and never a leading
// colon. Namespaces are stored by full name without the leading colon; "" is the root
// ":". Short names may repeat under different parents; a path "|a|b" tells them apart.
#include "attribute_data.h"

#include <QHash>
#include <QPair>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>
#include <memory>
#include <vector>

namespace host {

struct node {
    QString name; // namespaced name, unique among its siblings
    QString type; // "transform", "joint", ...
    int parent = -1;
    bool alive = true;
    QVector<int> children;
    std::unique_ptr<node_attributes> attributes; // made when an attribute is first touched
    std::unique_ptr<anim_curve> curve;           // animation curve nodes only
};

class scene {
public:
    scene();

    // Empties the scene: no nodes, the namespaces ":", "UI" and "shared", no fileInfo,
    // no name, not modified.
    void clear();

    // --- namespaces ---
    // Turns a user-given namespace into a full name: ":a:b" and "a:b" at the root are
    // "a:b"; a relative name is taken under the current namespace.
    QString absolute_namespace(const QString& name) const;
    bool namespace_exists(const QString& full) const;
    // Creates `full` and any missing ancestors; returns false for an invalid name.
    bool ensure_namespace(const QString& full);
    // Children of a namespace in creation order, by full name.
    QStringList child_namespaces(const QString& parent_full) const;
    QStringList all_namespaces() const { return namespaces_; }
    // Removes an empty namespace (no nodes, no children); false otherwise.
    bool remove_namespace(const QString& full);
    QString current_namespace() const { return current_; }
    bool set_current_namespace(const QString& full);
    bool namespace_is_empty(const QString& full) const;

    // --- nodes ---
    // Creates a node. With `make_unique` a clashing name gets the next free number
    // ("pCube" -> "pCube1"); otherwise a clash among siblings fails. The node's namespace
    // is created when missing. Returns the node id or -1.
    int create_node(const QString& type, const QString& name, int parent, bool make_unique);
    // A name, a namespaced name, a partial path "a|b" or an absolute path "|a|b".
    // Returns all matching live nodes.
    QVector<int> find(const QString& name_or_path) const;
    // Nodes whose name matches a wildcard pattern ('*', '?'), in creation order. A
    // pattern without ':' matches in the root namespace only, as Maya does.
    QVector<int> match(const QString& pattern) const;
    bool exists(const QString& name_or_path) const { return !find(name_or_path).isEmpty(); }
    // Deletes a node and its descendants.
    void remove_node(int id);
    bool rename_node(int id, const QString& new_name);
    // Moves a node under `new_parent` (-1: the world); a clash among its new siblings gives
    // it the next free name. False when that would make a cycle.
    bool reparent(int id, int new_parent);
    // `base`, or with the next free number when a node has that name already.
    QString unique_name(const QString& base) const;

    const node& at(int id) const { return nodes_[size_t(id)]; }
    // A node's attribute and curve data, for attributes.cpp and anim_curves.cpp.
    node& edit(int id) { return nodes_[size_t(id)]; }
    int node_capacity() const { return int(nodes_.size()); }
    int node_count() const { return live_; }
    QVector<int> live_nodes() const;
    // The shortest name that designates the node alone: its name, or its full path.
    QString display_name(int id) const;
    QString full_path(int id) const;

    // --- fileInfo ---
    void set_file_info(const QString& key, const QString& value);
    bool has_file_info(const QString& key) const { return file_info_index_.contains(key); }
    QString file_info(const QString& key) const;
    void remove_file_info(const QString& key);
    const QVector<QPair<QString, QString>>& file_infos() const { return file_info_; }

    // --- the file ---
    QString name() const { return name_; }
    void set_name(const QString& path) { name_ = path; }
    bool modified() const { return modified_; }
    void set_modified(bool m) { modified_ = m; }

    static bool valid_node_name(const QString& name);

    // Goes up with every change of nodes or namespaces, so that views know when to redraw.
    quint64 generation() const { return generation_; }
    // The same for attribute values, keys and the time.
    quint64 attribute_generation() const { return attribute_generation_; }
    void attributes_changed() { ++attribute_generation_; }

    // --- time ---
    time_state time;
    // Plugs a curve drives that were set by hand since the time last changed, as
    // (node, attribute index): they keep the hand-set value until then.
    QSet<QPair<int, int>> held;

private:
    bool sibling_clash(const QString& name, int parent) const;
    void detach_animation(int id);
    void index_name(int id);
    void unindex_name(int id);

    std::vector<node> nodes_;
    int live_ = 0;
    QHash<QString, QVector<int>> by_name_;
    // Each live node by its parent and name, so that a clash among siblings is found at
    // once however many nodes share a short name.
    QSet<QPair<int, QString>> siblings_;
    // For a stem, the lowest number that may be free: "a1" up to it are taken. A scene of
    // thousands of nodes named alike counted up from 1 for each.
    mutable QHash<QString, int> next_number_;
    QVector<int> roots_;
    QStringList namespaces_; // in creation order
    // The same, indexed: a scene of thousands of namespaces searched the list for each.
    QSet<QString> namespace_set_;
    QHash<QString, QStringList> children_; // by parent, in creation order
    QHash<QString, int> namespace_nodes_;  // live node count per namespace
    QString current_;
    QVector<QPair<QString, QString>> file_info_;
    QHash<QString, int> file_info_index_;
    QString name_;
    bool modified_ = false;
    quint64 generation_ = 0;
    quint64 attribute_generation_ = 0;
};

// The namespace part of a node name: "a:b:c" -> "a:b", "c" -> "".
QString namespace_of(const QString& name);
// Maya's wildcard match on a whole name.
bool wildcard_match(const QString& pattern, const QString& text);

} // namespace host
