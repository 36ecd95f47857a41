#pragma once
// Reading one Maya ASCII text into the scene: the scene's own file, or a file it
// references, whose nodes go under the reference's namespace.
#include "ma_args.h"
#include "ma_file.h"
#include "ma_lexer.h"
#include "ma_text.h"

#include <QHash>
#include <QSet>

namespace host {

class scene;
struct anim_curve;

namespace ma {

// What the scene's file and all the files it references share while they are read.
struct read_session {
    read_session(scene& s, read_report& r, bool refs)
        : target(s), report(r), load_references(refs) {}

    scene& target;
    read_report& report;
    bool load_references;
    QStringList open_files;        // canonical paths being read, against cycles
    QHash<QString, bool> deferred; // reference node -> left unloaded, outermost says
    qint64 referenced_bytes = 0;   // a budget against references that multiply
    QSet<QString> plugins_named;   // the report's plugins, to find one at once
    int dropped_warnings = 0;

    void warn(const QString& text);
};

class file_reader {
public:
    // `prefix` is the namespace the file's root maps to: "" for the scene's own file.
    file_reader(read_session& session, const QByteArray& text, const QString& file_path,
                const QString& prefix, int depth);

    // False only when the text is no Maya ASCII at all.
    bool run(QString* error);

private:
    void on_comment(const statement& s);
    void on_statement(const statement& s);
    void on_create_node();
    int find_parent(const QString& written, const QString& child);
    int create_node(const QString& type, const QString& name, int parent, bool shared);
    void on_file_info();
    void on_namespace();
    void on_requires();
    void on_file();
    void load_reference(const QString& path, const QString& name_space, const QString& node,
                        const QString& type);
    bool loadable(const QString& resolved, const QString& type, const QString& name_space,
                  const QString& label);
    bool read_referenced(const QString& resolved, const QString& name_space, const QString& label);

    // Attributes, keys and time (ma_attribute_reader.cpp).
    bool takes_set_attr(const statement& s);
    void on_set_attr();
    void on_set_special(const command_args& a);
    void on_add_attr();
    void on_connect_attr();
    void on_select();
    void set_curve_data(anim_curve& curve, const QString& attribute,
                        const std::vector<const arg*>& values);
    void set_time_settings(const QString& text);

    QString decode(const arg* a) const;
    QString node_type(const arg* a);
    QString qualify_new(const QString& name) const;
    QString qualify_lookup(const QString& path) const;
    QString qualify_namespace(const QString& name, const QString& base) const;
    void warn(const QString& text);
    int line_of(const char* p);

    read_session& session_;
    const QByteArray& text_;
    QString file_path_;
    QString prefix_;
    QString current_; // the current namespace, "namespace -set"
    int depth_;

    statement_lexer lexer_;
    text_codec codec_;
    const char* where_ = nullptr; // the statement being read, for warnings
    const char* counted_to_;
    int counted_lines_ = 1;
    std::vector<token> tokens_;
    std::vector<arg> args_;
    QSet<QString> skipped_;            // shared nodes a reference leaves to the scene
    QHash<QByteArray, QString> types_; // node types, shared among the nodes

    int current_node_ = -1;        // the node setAttr and addAttr lines apply to
    bool current_is_time_ = false; // after "select -ne :time1"
    int set_attr_index_ = -1;      // the attribute the next setAttr sets, -1 for the others

    bool seen_header_ = false;
    bool seen_end_ = false;
    int known_statements_ = 0;
};

// The text of a file, mapped when possible. False with `error` when it cannot be read.
bool load_bytes(const QString& path, QByteArray& out, QString* error);

// The file a reference path designates: environment variables expanded, relative paths
// from `from_dir`, and at last the file name alone in `from_dir`. Empty when none exists.
QString resolve_reference(const QString& path, const QString& from_dir);

} // namespace ma
} // namespace host
