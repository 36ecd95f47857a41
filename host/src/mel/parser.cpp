#include "parser.h"

#include "error.h"
#include "string_scan.h"

namespace host::mel {

namespace {

constexpr int max_depth = 200;

struct token {
    enum kind_t { end, ident, variable, int_lit, float_lit, string_lit, punct } kind = end;
    QString text; // identifier, variable name (without $), punctuation
    value literal;
    position at;
    int start = 0;
};

bool is_word_char(QChar c) {
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

bool is_hex_digit(QChar c) {
    return c.isDigit() || (c.toLower() >= QLatin1Char('a') && c.toLower() <= QLatin1Char('f'));
}

bool is_type_word(const QString& w, type* t = nullptr) {
    static const struct {
        const char* word;
        type kind;
    } words[] = {{"int", type::int_},
                 {"float", type::float_},
                 {"string", type::string},
                 {"vector", type::vector},
                 {"matrix", type::matrix}};
    for (const auto& entry : words) {
        if (w == QLatin1String(entry.word)) {
            if (t)
                *t = entry.kind;
            return true;
        }
    }
    return false;
}

class parser {
public:
    explicit parser(const QString& source) : src_(source) { advance(); }

    std::vector<stmt_ptr> program() {
        std::vector<stmt_ptr> out;
        while (cur_.kind != token::end)
            out.push_back(statement());
        return out;
    }

private:
    // ------------------------------------------------------------ scanning
    QChar at(int i) const { return i < src_.size() ? src_[i] : QChar(); }

    void newline_at(int i) {
        ++line_;
        line_start_ = i + 1;
    }

    position here(int i) const { return {line_, i - line_start_ + 1}; }

    [[noreturn]] void fail(const position& p, const QString& message) const {
        throw mel_error{p, message};
    }

    // A line ends at "\n", "\r\n" or a lone "\r" (scripts saved on old Macs).
    bool ends_line(int i) const {
        return at(i) == QLatin1Char('\n') ||
               (at(i) == QLatin1Char('\r') && at(i + 1) != QLatin1Char('\n'));
    }

    void skip_blank() {
        for (;;) {
            const QChar c = at(pos_);
            if (ends_line(pos_)) {
                newline_at(pos_);
                ++pos_;
            } else if (c.isSpace()) {
                ++pos_;
            } else if (c == QLatin1Char('/') && at(pos_ + 1) == QLatin1Char('/')) {
                while (pos_ < src_.size() && src_[pos_] != QLatin1Char('\n') &&
                       src_[pos_] != QLatin1Char('\r'))
                    ++pos_;
            } else if (c == QLatin1Char('/') && at(pos_ + 1) == QLatin1Char('*')) {
                const position p = here(pos_);
                pos_ += 2;
                while (pos_ < src_.size() &&
                       !(src_[pos_] == QLatin1Char('*') && at(pos_ + 1) == QLatin1Char('/'))) {
                    if (ends_line(pos_))
                        newline_at(pos_);
                    ++pos_;
                }
                if (pos_ >= src_.size())
                    fail(p, QStringLiteral("Unterminated comment"));
                pos_ += 2;
            } else {
                return;
            }
        }
    }

    QString scan_string() {
        const position p = here(pos_);
        ++pos_; // opening quote
        QString out;
        int chunk = pos_;
        const int n = src_.size();
        const QChar* data = src_.constData();
        for (;;) {
            const int i = int(find_string_stop(data + chunk, data + n) - data);
            if (out.isEmpty() && i < n && data[i] == QLatin1Char('"')) {
                out = src_.mid(chunk, i - chunk); // the common case: one piece, no copy loop
                pos_ = i + 1;
                return out;
            }
            out.append(data + chunk, i - chunk);
            if (i >= n || data[i] == QLatin1Char('\n'))
                fail(p, QStringLiteral("Unterminated string"));
            if (data[i] == QLatin1Char('"')) {
                pos_ = i + 1;
                return out;
            }
            const QChar e = at(i + 1); // an escape
            switch (e.unicode()) {
            case 'n':
                out += QLatin1Char('\n');
                break;
            case 't':
                out += QLatin1Char('\t');
                break;
            case 'r':
                out += QLatin1Char('\r');
                break;
            case 0:
                fail(p, QStringLiteral("Unterminated string"));
            default:
                out += e;
            }
            chunk = i + 2;
        }
    }

    void scan_number(token& t) {
        int i = pos_;
        if (at(i) == QLatin1Char('0') &&
            (at(i + 1) == QLatin1Char('x') || at(i + 1) == QLatin1Char('X')) &&
            is_hex_digit(at(i + 2))) {
            // Hexadecimal, taken as the 32 bits of an int.
            i += 2;
            quint32 bits = 0;
            while (is_hex_digit(at(i)))
                bits = bits * 16 + quint32(QString(at(i++)).toUInt(nullptr, 16));
            t.kind = token::int_lit;
            t.literal = value::of_int(int(bits));
            pos_ = i;
            return;
        }
        bool is_float = false;
        while (at(i).isDigit())
            ++i;
        if (at(i) == QLatin1Char('.') && at(i + 1) != QLatin1Char('.')) {
            is_float = true;
            ++i;
            while (at(i).isDigit())
                ++i;
        }
        if ((at(i) == QLatin1Char('e') || at(i) == QLatin1Char('E')) &&
            (at(i + 1).isDigit() ||
             ((at(i + 1) == QLatin1Char('-') || at(i + 1) == QLatin1Char('+')) &&
              at(i + 2).isDigit()))) {
            is_float = true;
            i += 2;
            while (at(i).isDigit())
                ++i;
        }
        const QString text = src_.mid(pos_, i - pos_);
        if (is_float) {
            t.kind = token::float_lit;
            t.literal = value::of_float(text.toDouble());
        } else {
            t.kind = token::int_lit;
            const double d = text.toDouble();
            t.literal = value::of_int(d > 2147483647.0 ? 2147483647 : int(d));
        }
        pos_ = i;
    }

    void advance() {
        skip_blank();
        token t;
        t.start = pos_;
        t.at = here(pos_);
        const QChar c = at(pos_);
        if (pos_ >= src_.size()) {
            t.kind = token::end;
        } else if (c == QLatin1Char('"')) {
            t.kind = token::string_lit;
            t.literal = value::of_string(scan_string());
        } else if (c.isDigit() || (c == QLatin1Char('.') && at(pos_ + 1).isDigit())) {
            scan_number(t);
        } else if (c == QLatin1Char('$')) {
            int i = pos_ + 1;
            while (is_word_char(at(i)))
                ++i;
            if (i == pos_ + 1)
                fail(t.at, QStringLiteral("Syntax error"));
            t.kind = token::variable;
            t.text = src_.mid(pos_ + 1, i - pos_ - 1);
            pos_ = i;
        } else if (c.isLetter() || c == QLatin1Char('_')) {
            int i = pos_;
            while (is_word_char(at(i)))
                ++i;
            t.kind = token::ident;
            t.text = src_.mid(pos_, i - pos_);
            pos_ = i;
        } else {
            static const char* const two[] = {"==", "!=", "<=", ">=", "&&", "||", "++",
                                              "--", "+=", "-=", "*=", "/=", "<<", ">>"};
            t.kind = token::punct;
            for (const char* op : two) {
                if (c == QLatin1Char(op[0]) && at(pos_ + 1) == QLatin1Char(op[1])) {
                    t.text = QLatin1String(op);
                    break;
                }
            }
            if (t.text.isEmpty())
                t.text = QString(c);
            pos_ += t.text.size();
        }
        cur_ = std::move(t);
    }

    bool is(const char* p) const {
        return cur_.kind == token::punct && cur_.text == QLatin1String(p);
    }
    bool is_ident(const char* w) const {
        return cur_.kind == token::ident && cur_.text == QLatin1String(w);
    }
    void expect(const char* p) {
        if (!is(p))
            fail(cur_.at, QStringLiteral("Syntax error"));
        advance();
    }
    bool accept(const char* p) {
        if (!is(p))
            return false;
        advance();
        return true;
    }

    // The next non-blank character after the current token, without consuming.
    QChar peek_char() {
        int i = pos_;
        while (i < src_.size() && src_[i].isSpace())
            ++i;
        return at(i);
    }

    struct depth_guard {
        parser& p;
        depth_guard(parser& owner, const position& at) : p(owner) {
            if (++p.depth_ > max_depth)
                p.fail(at, QStringLiteral("Too deeply nested"));
        }
        ~depth_guard() { --p.depth_; }
    };

    // Where the scanner stands, to look ahead and come back.
    struct mark {
        int pos, line, line_start;
        token cur;
    };
    mark save() const { return {pos_, line_, line_start_, cur_}; }
    void restore(const mark& m) {
        pos_ = m.pos;
        line_ = m.line;
        line_start_ = m.line_start;
        cur_ = m.cur;
    }

    // ------------------------------------------------------------ statements
    stmt_ptr make(stmt::kind k, const position& p) {
        auto s = std::make_unique<stmt>();
        s->what = k;
        s->at = p;
        return s;
    }

    stmt_ptr statement() {
        const position p = cur_.at;
        depth_guard guard(*this, p);
        if (accept(";"))
            return make(stmt::kind::empty, p);
        if (is("{"))
            return block();
        if (cur_.kind == token::ident) {
            const QString w = cur_.text;
            if (w == QLatin1String("global")) {
                advance();
                if (is_ident("proc"))
                    return proc(true, p);
                return declaration_stmt(true, p);
            }
            if (w == QLatin1String("proc"))
                return proc(false, p);
            // "string($i)" is a cast, not a declaration.
            if (is_type_word(w) && peek_char() != QLatin1Char('('))
                return declaration_stmt(false, p);
            if (w == QLatin1String("if"))
                return if_stmt();
            if (w == QLatin1String("while")) {
                advance();
                auto s = make(stmt::kind::while_, p);
                s->e = condition();
                s->then = statement();
                return s;
            }
            if (w == QLatin1String("do")) {
                advance();
                auto s = make(stmt::kind::do_while, p);
                s->then = statement();
                if (!is_ident("while"))
                    fail(cur_.at, QStringLiteral("Syntax error"));
                advance();
                s->e = condition();
                accept(";");
                return s;
            }
            if (w == QLatin1String("for"))
                return for_stmt();
            if (w == QLatin1String("switch"))
                return switch_stmt();
            if (w == QLatin1String("return")) {
                advance();
                auto s = make(stmt::kind::return_, p);
                if (!is(";") && cur_.kind != token::end && !is("}"))
                    s->e = expression();
                end_statement();
                return s;
            }
            if (w == QLatin1String("break") || w == QLatin1String("continue")) {
                advance();
                auto s = make(
                    w == QLatin1String("break") ? stmt::kind::break_ : stmt::kind::continue_, p);
                end_statement();
                return s;
            }
            if (w == QLatin1String("else") || w == QLatin1String("case") ||
                w == QLatin1String("default"))
                fail(p, QStringLiteral("Syntax error"));
            auto s = make(stmt::kind::expression, p);
            s->e = command_or_call();
            end_statement();
            return s;
        }
        auto s = make(stmt::kind::expression, p);
        s->e = expression();
        end_statement();
        return s;
    }

    void end_statement() {
        if (accept(";"))
            return;
        // The last statement of a text or a block may go without its semicolon.
        if (cur_.kind == token::end || is("}"))
            return;
        fail(cur_.at, QStringLiteral("Syntax error"));
    }

    expr_ptr condition() {
        expect("(");
        expr_ptr e = expression();
        expect(")");
        return e;
    }

    stmt_ptr block() {
        auto s = make(stmt::kind::block, cur_.at);
        expect("{");
        while (!is("}")) {
            if (cur_.kind == token::end)
                fail(cur_.at, QStringLiteral("Syntax error: missing }"));
            s->body.push_back(statement());
        }
        advance();
        return s;
    }

    stmt_ptr if_stmt() {
        auto s = make(stmt::kind::if_, cur_.at);
        advance();
        s->e = condition();
        s->then = statement();
        if (is_ident("else")) {
            advance();
            s->otherwise = statement();
        }
        return s;
    }

    // switch (value) { case a: ... break; default: ... }: the cases are marks in one body.
    stmt_ptr switch_stmt() {
        auto s = make(stmt::kind::switch_, cur_.at);
        advance();
        s->e = condition();
        expect("{");
        while (!is("}")) {
            if (cur_.kind == token::end)
                fail(cur_.at, QStringLiteral("Syntax error: missing }"));
            const position p = cur_.at;
            if (is_ident("case") || is_ident("default")) {
                const bool is_case = is_ident("case");
                advance();
                auto label = make(stmt::kind::case_, p);
                if (is_case)
                    label->e = binary(0); // not the conditional operator: its ':' ends the case
                expect(":");
                s->body.push_back(std::move(label));
                continue;
            }
            s->body.push_back(statement());
        }
        advance();
        return s;
    }

    stmt_ptr for_stmt() {
        const position p = cur_.at;
        advance();
        expect("(");
        if (cur_.kind == token::variable) {
            // for ($x in $array)
            const mark before = save();
            advance();
            if (is_ident("in")) {
                auto s = make(stmt::kind::for_in, p);
                s->var = before.cur.text;
                advance();
                s->e = expression();
                expect(")");
                s->then = statement();
                return s;
            }
            restore(before);
        }
        auto s = make(stmt::kind::for_, p);
        if (!is(";"))
            s->init = expression_list();
        expect(";");
        if (!is(";"))
            s->e = expression();
        expect(";");
        if (!is(")"))
            s->step = expression_list();
        expect(")");
        s->then = statement();
        return s;
    }

    // "a, b" in a for header: evaluated in order, as one expression.
    expr_ptr expression_list() {
        expr_ptr first = expression();
        while (accept(",")) {
            auto pair = std::make_unique<expr>();
            pair->what = expr::kind::binary;
            pair->name = QStringLiteral(",");
            pair->at = first->at;
            pair->a = std::move(first);
            pair->b = expression();
            first = std::move(pair);
        }
        return first;
    }

    type declared_type() {
        type t;
        if (cur_.kind != token::ident || !is_type_word(cur_.text, &t))
            fail(cur_.at, QStringLiteral("Syntax error"));
        advance();
        if (t != type::matrix && is("[")) {
            advance();
            expect("]");
            t = array_of(t);
        }
        return t;
    }

    stmt_ptr declaration_stmt(bool global, const position& p) {
        auto s = make(stmt::kind::declare, p);
        s->global_decl = global;
        s->declared = declared_type();
        do {
            if (cur_.kind != token::variable)
                fail(cur_.at, QStringLiteral("Syntax error"));
            declaration d;
            d.name = cur_.text;
            d.at = cur_.at;
            advance();
            if (s->declared == type::matrix) {
                // A matrix has its size, always: $m[rows][columns].
                expect("[");
                if (is("]"))
                    fail(cur_.at, QStringLiteral("Syntax error: a matrix needs its size"));
                d.rows = expression();
                expect("]");
                expect("[");
                if (is("]"))
                    fail(cur_.at, QStringLiteral("Syntax error: a matrix needs its size"));
                d.cols = expression();
                expect("]");
            } else if (accept("[")) {
                if (!is("]"))
                    expression(); // a size: arrays grow anyway
                expect("]");
                d.array = true;
            }
            if (accept("="))
                d.init = expression();
            s->decls.push_back(std::move(d));
        } while (accept(","));
        end_statement();
        return s;
    }

    stmt_ptr proc(bool global, const position& p) {
        advance(); // "proc"
        auto def = std::make_shared<proc_def>();
        def->global = global;
        def->at = p;
        if (cur_.kind == token::ident && is_type_word(cur_.text) && peek_char() != QLatin1Char('('))
            def->returns = declared_type();
        if (cur_.kind != token::ident)
            fail(cur_.at, QStringLiteral("Syntax error"));
        def->name = cur_.text;
        advance();
        expect("(");
        while (!is(")")) {
            param prm;
            prm.declared = declared_type();
            if (cur_.kind != token::variable)
                fail(cur_.at, QStringLiteral("Syntax error"));
            prm.name = cur_.text;
            advance();
            if (accept("[")) {
                expect("]");
                prm.declared = array_of(prm.declared);
            }
            def->params.append(prm);
            if (!accept(","))
                break;
        }
        expect(")");
        if (!is("{"))
            fail(cur_.at, QStringLiteral("Syntax error"));
        def->body = std::shared_ptr<stmt>(block().release());
        auto s = make(stmt::kind::proc, p);
        s->proc = def;
        return s;
    }

    // ------------------------------------------------------------ commands
    expr_ptr new_expr(expr::kind k, const position& p) {
        auto e = std::make_unique<expr>();
        e->what = k;
        e->at = p;
        return e;
    }

    bool ends_command() const {
        // A back-quote closes the command inside back-quotes; elsewhere it opens an argument.
        return cur_.kind == token::end || is(";") || is(")") || is("}") ||
               (is("`") && backquotes_ > 0);
    }

    // A raw word of command syntax: names, paths, patterns, components.
    expr_ptr raw_word() {
        const position p = cur_.at;
        int i = cur_.start;
        static const QString stops = QStringLiteral(";()`\"{},");
        while (i < src_.size() && !src_[i].isSpace() && !stops.contains(src_[i]))
            ++i;
        if (i == cur_.start)
            fail(p, QStringLiteral("Syntax error"));
        auto e = new_expr(expr::kind::literal, p);
        e->literal = value::of_string(src_.mid(cur_.start, i - cur_.start));
        pos_ = i;
        advance();
        return e;
    }

    bool word_follows_token() const {
        // A token glued to more word characters ("pCube1.vtx[0]", "*:*", "a|b") is a word.
        const QChar c = at(pos_);
        return !c.isNull() && !c.isSpace() && !QStringLiteral(";()`\"{},").contains(c);
    }

    // An identifier at the head of a statement, a back-quoted text or a catch: a call in
    // function syntax ("f(1, 2)") or a command ("setAttr ($n + \".tx\") 0"). A parenthesised
    // group followed by more arguments makes it a command.
    expr_ptr command_or_call() {
        if (peek_char() == QLatin1Char('(') && call_form_ahead())
            return expression();
        return command();
    }

    bool call_form_ahead() {
        const mark before = save();
        bool call = true;
        try {
            advance(); // the name; now at "("
            int depth = 0;
            do {
                if (cur_.kind == token::end)
                    break;
                if (is("("))
                    ++depth;
                else if (is(")"))
                    --depth;
                advance();
            } while (depth > 0);
            call = token_continues_expression();
        } catch (const mel_error&) {
            // Let the real parse report it where it stands.
        }
        restore(before);
        return call;
    }

    // Whether the token after "name(...)" carries on an expression rather than starting the
    // next argument of a command.
    bool token_continues_expression() const {
        if (cur_.kind == token::end)
            return true;
        if (cur_.kind != token::punct)
            return false;
        if (is("-") || is("+")) // "-flag", "-1" glued on are arguments; " - 1" is arithmetic
            return at(pos_).isNull() || at(pos_).isSpace();
        static const QStringList continuing{";", "}", ")",  ",",  "]",  "*",  "/",  "%",  "^",
                                            "<", ">", "<=", ">=", "==", "!=", "&&", "||", "?",
                                            ":", "=", "+=", "-=", "*=", "/=", "[",  "."};
        if (is("`"))
            return backquotes_ > 0;
        return continuing.contains(cur_.text);
    }

    expr_ptr command() {
        auto call = new_expr(expr::kind::call, cur_.at);
        call->name = cur_.text;
        advance();
        bool after_flag = false;
        while (!ends_command()) {
            depth_guard guard(*this, cur_.at);
            if (is("-") && (at(pos_).isLetter())) {
                auto flag = raw_word();
                call->args.push_back(std::move(flag));
                call->is_flag.append(true);
                after_flag = true;
                continue;
            }
            expr_ptr arg;
            if ((cur_.kind == token::string_lit) && !word_follows_token()) {
                arg = new_expr(expr::kind::literal, cur_.at);
                arg->literal = cur_.literal;
                advance();
            } else if (cur_.kind == token::variable) {
                arg = postfix();
            } else if (is("(")) {
                advance();
                arg = expression();
                expect(")");
            } else if (is("`")) {
                arg = backquote();
            } else if (is("{")) {
                arg = array_literal();
            } else if (is("<<")) {
                arg = vector_or_matrix_literal();
            } else if (is("-") && (at(pos_).isDigit() || at(pos_) == QLatin1Char('.'))) {
                const position p = cur_.at;
                advance();
                if (cur_.kind != token::int_lit && cur_.kind != token::float_lit)
                    fail(p, QStringLiteral("Syntax error"));
                arg = new_expr(expr::kind::literal, p);
                arg->literal = cur_.kind == token::int_lit ? value::of_int(-cur_.literal.i)
                                                           : value::of_float(-cur_.literal.f);
                advance();
            } else if ((cur_.kind == token::int_lit || cur_.kind == token::float_lit) &&
                       !word_follows_token()) {
                arg = new_expr(expr::kind::literal, cur_.at);
                arg->literal = cur_.literal;
                advance();
            } else {
                arg = raw_word();
                if (after_flag)
                    boolean_word(*arg);
            }
            call->args.push_back(std::move(arg));
            call->is_flag.append(false);
            after_flag = false;
        }
        return catch_in_command_syntax(std::move(call));
    }

    // "catch `cmd`" and "catchQuiet ($x)" hold their one argument as catch(...) does.
    expr_ptr catch_in_command_syntax(expr_ptr call) {
        if ((call->name != QLatin1String("catch") && call->name != QLatin1String("catchQuiet")) ||
            call->args.size() != 1 || call->is_flag.value(0))
            return call;
        auto e = new_expr(expr::kind::catch_call, call->at);
        e->name = call->name;
        e->a = std::move(call->args.front());
        return e;
    }

    // A flag's value written as on/off, yes/no, true/false is the number it stands for.
    static void boolean_word(expr& word) {
        static const QStringList truthy{"true", "on", "yes"}, falsy{"false", "off", "no"};
        const QString& w = word.literal.s;
        if (truthy.contains(w) || falsy.contains(w))
            word.literal = value::of_int(truthy.contains(w) ? 1 : 0);
    }

    expr_ptr backquote() {
        const position p = cur_.at;
        expect("`");
        expr_ptr inner;
        ++backquotes_;
        if (cur_.kind == token::ident)
            inner = command_or_call();
        else
            inner = expression();
        --backquotes_;
        if (!is("`"))
            fail(cur_.at, QStringLiteral("Syntax error: missing `"));
        advance();
        inner->at = p;
        return inner;
    }

    expr_ptr array_literal() {
        auto e = new_expr(expr::kind::array_lit, cur_.at);
        expect("{");
        while (!is("}")) {
            e->args.push_back(expression());
            if (!accept(","))
                break;
        }
        expect("}");
        return e;
    }

    // <<x, y, z>> is a vector; rows parted by ';' or another count of values make a matrix.
    expr_ptr vector_or_matrix_literal() {
        auto e = new_expr(expr::kind::vector_lit, cur_.at);
        expect("<<");
        int in_row = 0;
        for (;;) {
            e->args.push_back(expression());
            ++in_row;
            if (accept(","))
                continue;
            if (accept(";")) {
                e->row_sizes.append(in_row);
                in_row = 0;
                continue;
            }
            break;
        }
        e->row_sizes.append(in_row);
        expect(">>");
        if (e->row_sizes.size() > 1 || e->args.size() != 3)
            e->what = expr::kind::matrix_lit;
        return e;
    }

    // ------------------------------------------------------------ expressions
    expr_ptr expression() {
        depth_guard guard(*this, cur_.at);
        return assignment();
    }

    expr_ptr assignment() {
        expr_ptr left = ternary();
        static const char* const ops[] = {"=", "+=", "-=", "*=", "/="};
        for (const char* op : ops) {
            if (is(op)) {
                if (left->what != expr::kind::variable && left->what != expr::kind::index)
                    fail(cur_.at, QStringLiteral("Syntax error: cannot assign"));
                auto e = new_expr(expr::kind::assign, cur_.at);
                e->name = QLatin1String(op);
                advance();
                e->a = std::move(left);
                depth_guard guard(*this, e->at);
                e->b = assignment();
                return e;
            }
        }
        return left;
    }

    expr_ptr ternary() {
        expr_ptr cond = binary(0);
        if (!is("?"))
            return cond;
        auto e = new_expr(expr::kind::ternary, cur_.at);
        advance();
        e->a = std::move(cond);
        e->b = expression();
        expect(":");
        e->c = expression();
        return e;
    }

    static int precedence(const QString& op) {
        static const QVector<QStringList> levels{
            {"||"}, {"&&"}, {"==", "!="}, {"<", ">", "<=", ">="}, {"+", "-"}, {"*", "/", "%", "^"}};
        for (int i = 0; i < levels.size(); ++i) {
            if (levels[i].contains(op))
                return i;
        }
        return -1;
    }

    expr_ptr binary(int level) {
        if (level > 5)
            return unary();
        expr_ptr left = binary(level + 1);
        while (cur_.kind == token::punct && precedence(cur_.text) == level) {
            const bool logical = level <= 1;
            auto e = new_expr(logical ? expr::kind::logical : expr::kind::binary, cur_.at);
            e->name = cur_.text;
            advance();
            e->a = std::move(left);
            e->b = binary(level + 1);
            left = std::move(e);
        }
        return left;
    }

    expr_ptr unary() {
        if (is("-") || is("!") || is("+")) {
            auto e = new_expr(expr::kind::unary, cur_.at);
            e->name = cur_.text;
            advance();
            depth_guard guard(*this, e->at);
            e->a = unary();
            return e;
        }
        if (is("++") || is("--")) {
            auto e = new_expr(expr::kind::incdec, cur_.at);
            e->name = cur_.text;
            e->prefix = true;
            advance();
            e->a = postfix();
            return e;
        }
        if (is("(")) {
            type t;
            if (cast_ahead(&t)) {
                auto e = new_expr(expr::kind::cast, cur_.at);
                e->declared = t;
                advance(); // "("
                advance(); // the type
                advance(); // ")"
                depth_guard guard(*this, e->at);
                e->a = unary();
                return e;
            }
        }
        return postfix();
    }

    // "(int)", "(float)", "(string)", "(vector)" ahead.
    bool cast_ahead(type* t) {
        const mark before = save();
        advance();
        bool cast = cur_.kind == token::ident && is_type_word(cur_.text, t) && *t != type::matrix;
        if (cast) {
            advance();
            cast = is(")");
        }
        restore(before);
        return cast;
    }

    expr_ptr postfix() {
        expr_ptr e = primary();
        for (;;) {
            if (is("[")) {
                auto ix = new_expr(expr::kind::index, cur_.at);
                advance();
                ix->a = std::move(e);
                ix->b = expression();
                expect("]");
                e = std::move(ix);
            } else if ((is("++") || is("--")) &&
                       (e->what == expr::kind::variable || e->what == expr::kind::index)) {
                auto inc = new_expr(expr::kind::incdec, cur_.at);
                inc->name = cur_.text;
                advance();
                inc->a = std::move(e);
                e = std::move(inc);
            } else if (is(".") && component_ahead()) {
                auto part = new_expr(expr::kind::component, cur_.at);
                advance();
                part->name = cur_.text;
                advance();
                part->a = std::move(e);
                e = std::move(part);
            } else {
                return e;
            }
        }
    }

    // ".x", ".y" or ".z", glued to what comes before.
    bool component_ahead() const {
        const int start = cur_.start + 1;
        return (at(start) == QLatin1Char('x') || at(start) == QLatin1Char('y') ||
                at(start) == QLatin1Char('z')) &&
               !is_word_char(at(start + 1));
    }

    expr_ptr primary() {
        const position p = cur_.at;
        switch (cur_.kind) {
        case token::int_lit:
        case token::float_lit:
        case token::string_lit: {
            auto e = new_expr(expr::kind::literal, p);
            e->literal = std::move(cur_.literal);
            advance();
            return e;
        }
        case token::variable: {
            auto e = new_expr(expr::kind::variable, p);
            e->name = cur_.text;
            advance();
            return e;
        }
        case token::ident:
            return call_or_constant();
        case token::punct:
            if (is("(")) {
                advance();
                expr_ptr e = expression();
                expect(")");
                return e;
            }
            if (is("`"))
                return backquote();
            if (is("{"))
                return array_literal();
            if (is("<<"))
                return vector_or_matrix_literal();
            break;
        case token::end:
            break;
        }
        fail(p, QStringLiteral("Syntax error"));
    }

    expr_ptr call_or_constant() {
        const position p = cur_.at;
        const QString name = cur_.text;
        advance();
        if (!is("(")) {
            static const QStringList truthy{"true", "on", "yes"}, falsy{"false", "off", "no"};
            if (truthy.contains(name) || falsy.contains(name)) {
                auto e = new_expr(expr::kind::literal, p);
                e->literal = value::of_int(truthy.contains(name) ? 1 : 0);
                return e;
            }
            fail(p, QStringLiteral("Syntax error"));
        }
        advance();
        type cast_type;
        if (is_type_word(name, &cast_type) && cast_type != type::matrix) {
            // int($x), string($i): a cast in function form.
            auto e = new_expr(expr::kind::cast, p);
            e->declared = cast_type;
            e->a = expression();
            expect(")");
            return e;
        }
        const bool is_catch = name == QLatin1String("catch") || name == QLatin1String("catchQuiet");
        auto e = new_expr(is_catch ? expr::kind::catch_call : expr::kind::call, p);
        e->name = name;
        if (is_catch) {
            if (cur_.kind == token::ident)
                e->a = command_or_call();
            else
                e->a = expression();
            expect(")");
            return e;
        }
        while (!is(")")) {
            e->args.push_back(expression());
            e->is_flag.append(false);
            if (!accept(","))
                break;
        }
        expect(")");
        return e;
    }

    const QString& src_;
    int pos_ = 0;
    int line_ = 1;
    int line_start_ = 0;
    int depth_ = 0;
    int backquotes_ = 0; // back-quoted commands open around the current token
    token cur_;
};

} // namespace

std::vector<stmt_ptr> parse(const QString& source) {
    return parser(source).program();
}

} // namespace host::mel
