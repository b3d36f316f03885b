#include "platform/forms/controls.h"
#include "platform/forms/palettes.h"
#include "platform/forms/showntext.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QStylePainter>

namespace {

// Of a long text it measures and draws the beginning; the entry keeps the whole.
class Shortened : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale& locale) const override
    {
        return shownText(QStyledItemDelegate::displayText(value, locale));
    }
};

} // namespace

ComboBox::ComboBox(QWidget* parent) : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus); // the wheel must not move the focus
    setMinimumContentsLength(12);
    connect(this, &QComboBox::activated, this, &ComboBox::clicked);
}

int ComboBox::add(const QString& text, qint32 itemData)
{
    // The first entry of an empty list would choose itself.
    const int chosen = currentIndex();
    const QSignalBlocker quiet(this);
    addItem(text, itemData);
    setCurrentIndex(chosen);
    return count() - 1;
}

QString ComboBox::list(int index) const
{
    return itemText(index);
}

qint32 ComboBox::itemData(int index) const
{
    return QComboBox::itemData(index).toInt();
}

void ComboBox::setItemData(int index, qint32 value)
{
    QComboBox::setItemData(index, value);
}

void ComboBox::setListIndex(int index)
{
    const int wanted = index >= 0 && index < count() ? index : -1;
    if (wanted == currentIndex()) return;
    setCurrentIndex(wanted);
    emit clicked();
}

void ComboBox::setText(const QString& text)
{
    setListIndex(findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

void ComboBox::clear()
{
    const QSignalBlocker quiet(this);
    QComboBox::clear();
    update();
}

void ComboBox::setLocked(bool locked)
{
    locked_ = locked;
    setAccessibleDescription(locked ? QStringLiteral("só de leitura") : QString()); // the toolkit has no such state
    if (locked) hidePopup();
    update();
}

void ComboBox::keyPressEvent(QKeyEvent* event)
{
    if (locked_)
        event->ignore();
    else
        QComboBox::keyPressEvent(event);
}

void ComboBox::mousePressEvent(QMouseEvent* event)
{
    if (!locked_) QComboBox::mousePressEvent(event);
}

// Without the focus the wheel is meant for the window, which scrolls.
void ComboBox::wheelEvent(QWheelEvent* event)
{
    if (locked_ || !hasFocus())
        event->ignore();
    else
        QComboBox::wheelEvent(event);
}

// A list that is closed looks like a field, in the field's colour, with a button beside it unless it is locked.
void ComboBox::paintEvent(QPaintEvent*)
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.palette = firstEqual(option.palette);
    option.currentText = shownText(option.currentText);
    QStylePainter painter(this);
    if (locked_) {
        QStyleOptionFrame frame;
        frame.initFrom(this);
        frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &frame, this);
        frame.state |= QStyle::State_Sunken | QStyle::State_ReadOnly;
        painter.drawPrimitive(QStyle::PE_PanelLineEdit, frame);
        painter.setPen(frame.palette.color(QPalette::Text));
        const QRect field = rect().adjusted(frame.lineWidth + 2, 0, -frame.lineWidth - 2, 0);
        const QString shown = fontMetrics().elidedText(shownText(currentText()), Qt::ElideRight, field.width());
        return painter.drawText(field, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
    }
    option.editable = true;
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const QRect field = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    painter.fillRect(field, option.palette.base());
    option.editable = false;
    option.palette.setBrush(QPalette::ButtonText, option.palette.text());
    painter.setPen(option.palette.color(QPalette::Text));
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

// The toolkit's own way to this size makes the popup of each list when the window is built, and has it follow every
// change of colour, though most lists are never opened.
QSize ComboBox::sizeHint() const
{
    struct Measured
    {
        QFont font;
        const QStyle* style = nullptr;
        int length = 0;
        QSize size;
    };
    static Measured last;
    const int length = minimumContentsLength();
    if (last.style == style() && last.font == font() && last.length == length) return last.size;
    QComboBox sample;
    sample.setStyle(style());
    sample.setFont(font());
    sample.setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    sample.setMinimumContentsLength(length);
    last = {font(), style(), length, sample.sizeHint()};
    return last.size;
}

void ComboBox::showPopup()
{
    if (locked_) return;
    // Not before: a card has many lists, and most are never opened.
    if (!dynamic_cast<Shortened*>(view()->itemDelegate())) setItemDelegate(new Shortened(this));
    const int entry = view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width();
    view()->setMinimumWidth(std::max(width(), entry)); // so that a long name can be read whole
    QComboBox::showPopup();
}

ListBox::ListBox(QWidget* parent) : QListWidget(parent)
{
    setItemDelegate(new Shortened(this));
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QListWidget::itemClicked, this, &ListBox::clicked);
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        if (selectedItems().isEmpty()) setCurrentRow(-1);
    });
}

// The toolkit would make the first entry the current one, and announce it.
void ListBox::focusInEvent(QFocusEvent* event)
{
    if (listIndex() >= 0) return QListWidget::focusInEvent(event);
    const QSignalBlocker quiet(this);
    QListWidget::focusInEvent(event);
    setCurrentRow(-1);
}

int ListBox::add(const QString& text, qint32 itemData)
{
    auto* entry = new QListWidgetItem(text);
    entry->setData(Qt::UserRole, itemData);
    addItem(entry);
    return count() - 1;
}

QString ListBox::list(int index) const
{
    const QListWidgetItem* entry = item(index);
    return entry ? entry->text() : QString();
}

qint32 ListBox::itemData(int index) const
{
    const QListWidgetItem* entry = item(index);
    return entry ? entry->data(Qt::UserRole).toInt() : 0;
}

void ListBox::setListIndex(int index)
{
    const int wanted = index >= 0 && index < count() ? index : -1;
    if (wanted == currentRow()) return;
    setCurrentRow(wanted);
    emit clicked();
}

void ListBox::removeItem(int index)
{
    delete takeItem(index);
    setCurrentRow(-1);
}
