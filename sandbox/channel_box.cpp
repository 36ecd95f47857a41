#include "channel_box.h"

#include "core/anim_curves.h"
#include "core/session.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace sandbox {

// A table that tells whether a value is being typed.
class channel_table : public QTableWidget {
public:
    using QTableWidget::QTableWidget;
    bool editing() const { return state() == EditingState; }
};

namespace {

const QColor keyed_color(205, 96, 106);
const QColor locked_color(86, 96, 110);
const QColor held_color(196, 160, 80); // keyed, changed since, not keyed again

// Channels in the channel box's order: the transform's own, then visibility, then the
// user's; only keyable ones and those put in the channel box.
QVector<int> channels(const host::scene& s, int node) {
    QVector<int> own, visibility, user;
    for (int k = 0; k < host::attribute_count(s, node); ++k) {
        const host::attribute_def& definition = host::attribute_at(s, node, k);
        const host::plug_value state = host::plug_state(s, {node, k});
        if (!host::is_scalar(definition) || !(state.keyable || state.channel_box))
            continue;
        if (definition.user)
            user.append(k);
        else if (definition.long_name == QLatin1String("visibility"))
            visibility.append(k);
        else
            own.append(k);
    }
    return own + visibility + user;
}

// Three decimals at most, as the channel box shows them.
QString shown_number(double v) {
    QString text = QString::number(v, 'f', 3);
    while (text.contains(QLatin1Char('.')) && text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

QString shown_value(const host::attribute_def& definition, double v) {
    if (definition.kind == host::attribute_kind::boolean)
        return v != 0 ? QStringLiteral("on") : QStringLiteral("off");
    return shown_number(v);
}

QString mel_string(const QString& text) {
    QString escaped = text;
    escaped.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    escaped.replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

// A typed value as a MEL argument: a number or a switch word as it is, anything else as a
// string, which setAttr refuses with its own words.
QString mel_value(const QString& text) {
    bool number = false;
    text.toDouble(&number);
    bool word = false;
    host::text_bool(text, &word);
    return number || word ? text : mel_string(text);
}

} // namespace

channel_box::channel_box(QWidget* parent) : QWidget(parent) {
    title_ = new QLabel;
    title_->setObjectName(QStringLiteral("channel_box_title"));
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);
    table_ = new channel_table(0, 2);
    table_->setObjectName(QStringLiteral("channel_box_table"));
    table_->horizontalHeader()->hide();
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    table_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Fixed);
    table_->horizontalHeader()->resizeSection(
        1, fontMetrics().horizontalAdvance(QStringLiteral("-000.000")) + 16);
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    table_->setSelectionMode(QAbstractItemView::NoSelection);
    table_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                            QAbstractItemView::AnyKeyPressed);
    table_->setShowGrid(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(title_);
    layout->addWidget(table_);
    connect(table_, &QTableWidget::itemChanged, this, &channel_box::item_changed);
    selection_callback_ = host::session::get().events.add(
        QStringLiteral("SelectionChanged"),
        [](void* self) { static_cast<channel_box*>(self)->refresh(); }, this);
    refresh();
}

channel_box::~channel_box() {
    host::session::get().events.remove(selection_callback_);
}

QTableWidget* channel_box::table() const {
    return table_;
}

void channel_box::refresh() {
    const host::session& host = host::session::get();
    const QStringList selection = host.active.names();
    if (selection == shown_selection_ && host.scene.generation() == generation_ &&
        host.scene.attribute_generation() == attribute_generation_)
        return;
    // A value being typed stays until it is committed.
    if (table_->editing() && selection == shown_selection_)
        return;
    shown_selection_ = selection;
    generation_ = host.scene.generation();
    attribute_generation_ = host.scene.attribute_generation();
    rebuild();
}

void channel_box::rebuild() {
    const host::scene& s = host::session::get().scene;
    filling_ = true;
    const QSignalBlocker blocker(table_);
    table_->clearContents();
    table_->setRowCount(0);
    attributes_.clear();
    node_name_.clear();
    const QString last = shown_selection_.isEmpty()
                             ? QString()
                             : shown_selection_.last().section(QLatin1Char('.'), 0, 0);
    const QVector<int> ids = last.isEmpty() ? QVector<int>() : s.find(last);
    title_->setText(ids.size() == 1 ? s.display_name(ids.front()) : QString());
    if (ids.size() != 1) {
        filling_ = false;
        return;
    }
    const int node = ids.front();
    node_name_ = s.display_name(node);
    for (int index : channels(s, node)) {
        const host::plug p{node, index};
        const host::attribute_def& definition = host::attribute_at(s, node, index);
        const host::plug_value state = host::plug_state(s, p);
        const double v = host::plug_number(s, p);
        const int row = table_->rowCount();
        table_->insertRow(row);
        attributes_.append(definition.long_name);
        auto* name = new QTableWidgetItem(host::nice_name(definition));
        name->setFlags(Qt::ItemIsEnabled);
        table_->setItem(row, 0, name);
        auto* value = new QTableWidgetItem(shown_value(definition, v));
        value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        value->setFlags(state.locked ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsEditable);
        const bool keyed = host::driving_curve(s, p) >= 0;
        if (state.locked)
            value->setBackground(locked_color);
        else if (keyed && s.held.contains({node, index}))
            value->setBackground(held_color);
        else if (keyed)
            value->setBackground(keyed_color);
        table_->setItem(row, 1, value);
        if (definition.kind == host::attribute_kind::enumeration && !state.locked) {
            auto* combo = new QComboBox;
            for (const auto& field : definition.fields)
                combo->addItem(field.first, field.second);
            combo->setCurrentIndex(combo->findData(int(v)));
            connect(combo, QOverload<int>::of(&QComboBox::activated), this,
                    [this, row, combo](int at) { commit(row, combo->itemData(at).toString()); });
            table_->setCellWidget(row, 1, combo);
        }
    }
    filling_ = false;
}

void channel_box::item_changed(QTableWidgetItem* item) {
    if (!filling_ && item->column() == 1)
        commit(item->row(), item->text().trimmed());
}

void channel_box::commit(int row, const QString& value_text) {
    if (row < 0 || row >= attributes_.size())
        return;
    // As Maya's does, the edit goes to every selected node that has the attribute.
    const host::session& host = host::session::get();
    QStringList lines;
    QStringList nodes;
    for (const QString& name : shown_selection_) {
        const QString node = name.section(QLatin1Char('.'), 0, 0);
        const QString plug_text = node + QLatin1Char('.') + attributes_[row];
        host::plug p;
        if (!nodes.contains(node) &&
            host::find_plug(host.scene, plug_text, p) == host::plug_lookup::found) {
            nodes << node;
            lines << QStringLiteral("setAttr %1 %2;")
                         .arg(mel_string(plug_text), mel_value(value_text));
        }
    }
    if (!lines.isEmpty())
        emit command(lines.join(QLatin1Char(' ')));
    // The table shows the scene again, whatever the command made of the value.
    generation_ = ~quint64(0);
    refresh();
}

} // namespace sandbox
