#pragma once
// Moving a button from one set of namespaces to another. Both lists are parallel, each
// entry with its trailing ':'; later entries are tried first, so that of two nested
// namespaces the longer one wins.
#include "document/picker_button.h"

#include <QHash>
#include <QStringList>
#include <QVector>

// The pairs of one rewrite, indexed once for all the buttons it goes through: a name finds
// its pair by its own prefixes, in time linear in its length, however many pairs there are.
class namespace_rewrite {
public:
    namespace_rewrite(const QStringList& from_list, const QStringList& to_list);

    // The pair whose old namespace begins `name` (the last such), or -1.
    int pair_for(const QString& name) const;
    // The last pair whose old namespace is the root ":", or -1.
    int root_pair() const { return root_pair_; }
    const QString& from(int pair) const { return from_[pair]; }
    const QString& to(int pair) const { return to_[pair]; }
    bool isEmpty() const { return from_.isEmpty(); }

private:
    QStringList from_, to_;
    QHash<QString, int> last_pair_;
    QVector<int> colon_counts_; // of the old namespaces, each count once, ascending
    int root_pair_ = -1;
};

// A selection button rewrites the prefix of each target; a command button rewrites every
// name-like token of its script that starts with an old namespace.
void rename_namespaces(picker_button_data& button, const namespace_rewrite& pairs);

// A namespace as the rewrite takes it: with a trailing ':' (an empty `to` stays empty).
QString namespace_prefix(const QString& name, bool keep_empty);
