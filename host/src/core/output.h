#pragma once
// The script editor's output: every line the host prints goes through here.
#include <QString>
#include <functional>

namespace host {

enum class line_kind { text, result, warning, error };

class output {
public:
    using sink = std::function<void(line_kind, const QString& line)>;

    // Formats as the script editor does: "// Error: text //", "// Warning: text //",
    // "// Result: text //"; plain text goes out unchanged.
    void write(line_kind kind, const QString& text);
    void error(const QString& text) { write(line_kind::error, text); }
    void warning(const QString& text) { write(line_kind::warning, text); }
    void result(const QString& text) { write(line_kind::result, text); }
    void text(const QString& text) { write(line_kind::text, text); }

    // Replaces where lines go; an empty sink restores stdout.
    void set_sink(sink s) { sink_ = std::move(s); }
    int error_count() const { return errors_; }
    void reset_error_count() { errors_ = 0; }

    static QString format(line_kind kind, const QString& text);

private:
    sink sink_;
    int errors_ = 0;
};

} // namespace host
