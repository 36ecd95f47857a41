#pragma once
// The syntax tree of MEL.
#include "value.h"

#include <QString>
#include <QVector>
#include <memory>
#include <vector>

namespace host::mel {

struct position {
    int line = 1;
    int column = 1;
};

struct expr;
struct stmt;
using expr_ptr = std::unique_ptr<expr>;
using stmt_ptr = std::unique_ptr<stmt>;

struct expr {
    enum class kind {
        literal,    // value
        variable,   // name
        index,      // a[0]: target a, index b
        unary,      // op, a
        binary,     // op, a, b
        logical,    // op "&&" / "||", a, b
        ternary,    // a ? b : c
        assign,     // op ("=", "+=", ...), a (lvalue), b
        incdec,     // op "++"/"--", prefix flag, a (lvalue)
        call,       // name(args) or a command: name, args, flags
        array_lit,  // {a, b, ...}
        catch_call, // catch / catchQuiet: name, a
        cast,       // (int) a, int(a): declared, a
        component,  // ($v.x): a, name "x" / "y" / "z"
        vector_lit, // <<a, b, c>>: args
        matrix_lit, // <<a, b; c, d>>: args row by row, row_sizes
    };
    kind what;
    position at;
    value literal;
    QString name; // variable or command name; operator text
    bool prefix = false;
    expr_ptr a, b, c;
    std::vector<expr_ptr> args;
    QVector<bool> is_flag;      // per call argument: a "-flag" of command syntax
    type declared = type::none; // cast
    QVector<int> row_sizes;     // matrix_lit
};

struct param {
    type declared;
    QString name;
};

struct proc_def {
    bool global = false;
    QString name;
    type returns = type::none;
    QVector<param> params;
    std::shared_ptr<stmt> body;
    position at;
    QString file; // where it was defined; empty when entered interactively
};

struct declaration {
    QString name;
    bool array = false;
    expr_ptr init;
    expr_ptr rows, cols; // a matrix's size
    position at;
};

struct stmt {
    enum class kind {
        expression,
        block,
        if_,
        while_,
        do_while,
        for_,
        for_in,
        return_,
        break_,
        continue_,
        declare,
        proc,
        switch_, // e: control, body: statements and case_ marks
        case_,   // e: value, or none for default
        empty
    };
    kind what;
    position at;
    expr_ptr e;                 // expression, condition, return value, for-in array
    expr_ptr init, step;        // for
    std::vector<stmt_ptr> body; // block
    stmt_ptr then, otherwise;   // if; loops use `then` as body
    QString var;                // for-in variable
    bool global_decl = false;
    type declared = type::none;
    std::vector<declaration> decls;
    std::shared_ptr<proc_def> proc;
};

} // namespace host::mel
