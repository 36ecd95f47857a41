#pragma once
// The script editor's output: every line the host prints goes through here.
#include <QString>
#include <functional>

namespace host {

enum class line_kind { text, result, warning, error };
// The language of the running execution decides how its lines look: "// ... //" for MEL,
// "# ... #" for Python, as the script editor shows them.
enum class language { mel, python };

class output {
public:
    using sink = std::function<void(line_kind, const QString& line)>;

    // Formats as the script editor does: "// Error: text //", "// Warning: text //",
    // "// Result: text //" (with "#" in Python); plain text goes out unchanged.
    void write(line_kind kind, const QString& text);
    void error(const QString& text) { write(line_kind::error, text); }
    void warning(const QString& text) { write(line_kind::warning, text); }
    void result(const QString& text) { write(line_kind::result, text); }
    void text(const QString& text) { write(line_kind::text, text); }

    // Replaces where lines go; an empty sink restores stdout.
    void set_sink(sink s) { sink_ = std::move(s); }
    int error_count() const { return errors_; }
    void reset_error_count() { errors_ = 0; }
    // The text of the latest error line, unformatted.
    const QString& last_error() const { return last_error_; }

    // The style of the execution that runs now; an execution sets it for its length.
    language style() const { return style_; }
    class style_scope {
    public:
        style_scope(output& out, language style) : out_(out), previous_(out.style_) {
            out.style_ = style;
        }
        ~style_scope() { out_.style_ = previous_; }
        style_scope(const style_scope&) = delete;
        style_scope& operator=(const style_scope&) = delete;

    private:
        output& out_;
        language previous_;
    };

    static QString format(line_kind kind, const QString& text, language style = language::mel);

private:
    sink sink_;
    int errors_ = 0;
    QString last_error_;
    language style_ = language::mel;
};

} // namespace host
