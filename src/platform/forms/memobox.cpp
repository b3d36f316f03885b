#include "platform/forms/controls.h"
#include "platform/forms/cuttext.h"
#include "platform/forms/editkeys.h"
#include "platform/forms/palettes.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyleOptionSlider>
#include <QTextBlock>

namespace {

// The document knows one kind of line break. Which one stands in the text is a property of the break itself, so that
// it goes and comes back with it; a break without the property is the user's. Where a long word is broken, nothing at
// all stands in the text: the time to lay out a word grows with the square of its length.
constexpr int kindOfBreak = QTextFormat::UserProperty;
constexpr int nothing = 1;
const QString breaks[]{"\r\n", "", "\n", "\r", QChar(QChar::ParagraphSeparator), QChar(0xFDD0), QChar(0xFDD1)};

constexpr qsizetype longestWord = 1000;
constexpr qsizetype longestParagraph = 20000;

// A field can't take any number of lines at once. No paste has as many.
constexpr int mostBreaks = 40000;

int kindBefore(const QTextBlock& block)
{
    return block.charFormat().intProperty(kindOfBreak);
}

// The kind of the break that begins at a place of the text; -1 for none.
int kindAt(const QString& text, qsizetype place)
{
    const QChar character = text.at(place);
    if (character == u'\r') return place + 1 < text.size() && text.at(place + 1) == u'\n' ? 0 : 3;
    for (int kind = 2; kind < int(std::size(breaks)); ++kind)
        if (breaks[kind] == character) return kind;
    return -1;
}

bool isBlank(QChar character)
{
    return character == u' ' || character == u'\t';
}

// Puts a text into the document, a piece behind the other.
class Writer
{
public:
    Writer(const QTextCursor& cursor, const QString& text) : cursor_(cursor), text_(text)
    {
        const QString before = cursor_.block().text().left(cursor_.positionInBlock());
        while (word_ < before.size() && !isBlank(before.at(before.size() - 1 - word_)))
            ++word_;
        line_ = before.size();
    }

    // Returns how many characters of it are in the document now.
    qsizetype write()
    {
        cursor_.beginEditBlock();
        for (qsizetype place = 0; place < text_.size() && breaks_ < mostBreaks; ++place) {
            const int kind = kindAt(text_, place);
            if (kind < 0) {
                if (isTooLong(place)) end(place, nothing);
                ++line_;
                word_ = isBlank(text_.at(place)) ? 0 : word_ + 1;
                continue;
            }
            end(place, kind);
            place = begin_ - 1;
        }
        const bool whole = breaks_ < mostBreaks;
        if (whole) cursor_.insertText(text_.mid(begin_), QTextCharFormat());
        cursor_.endEditBlock();
        return whole ? text_.size() : begin_;
    }

private:
    bool isTooLong(qsizetype place) const
    {
        if (word_ < longestWord && (line_ < longestParagraph || word_ > 0)) return false;
        const QChar character = text_.at(place);
        return !character.isLowSurrogate() && (!character.isMark() || word_ > 2 * longestWord);
    }

    void end(qsizetype place, int kind)
    {
        QTextCharFormat format;
        if (kind > 0) format.setProperty(kindOfBreak, kind);
        cursor_.insertText(text_.mid(begin_, place - begin_), QTextCharFormat());
        cursor_.insertBlock(QTextBlockFormat(), format);
        begin_ = place + breaks[kind].size();
        word_ = line_ = 0;
        ++breaks_;
    }

    QTextCursor cursor_;
    const QString& text_;
    qsizetype begin_ = 0; // of the piece that isn't written yet
    qsizetype word_ = 0, line_ = 0;
    int breaks_ = 0;
};

class ScrollBar : public QScrollBar
{
public:
    using QScrollBar::QScrollBar;

protected:
    void initStyleOption(QStyleOptionSlider* option) const override
    {
        QScrollBar::initStyleOption(option);
        option->palette = firstEqual(option->palette); // the field's, with its colour
    }
};

} // namespace

MemoBox::MemoBox(QWidget* parent) : QPlainTextEdit(parent)
{
    setVerticalScrollBar(new ScrollBar(Qt::Vertical, this));
    setHorizontalScrollBar(new ScrollBar(Qt::Horizontal, this));
    setTabChangesFocus(true);
    setFocusPolicy(Qt::StrongFocus);
}

QString MemoBox::text() const
{
    const QString shown = stored(0, document()->characterCount() - 1);
    return shown.isEmpty() ? shown : shown + rest_;
}

void MemoBox::setText(const QString& text)
{
    const QTextDocument& held = *document();
    const bool fresh = !held.isModified() && !held.isUndoAvailable() && !held.isRedoAvailable() && !hasFocus();
    if (fresh && text.isEmpty() && held.isEmpty()) return;
    rest_.clear();
    {
        const QSignalBlocker quiet(text.isEmpty() ? nullptr : this);
        setPlainText({});
    }
    document()->setUndoRedoEnabled(false);
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    rest_ = text.mid(Writer(cursor, text).write());
    cursor.endEditBlock();
    document()->setUndoRedoEnabled(true);
    document()->setModified(false);
    moveCursor(QTextCursor::Start);
    if (!rest_.isEmpty()) tellUnshown();
}

QString MemoBox::stored(int from, int to) const
{
    QString result;
    for (QTextBlock block = document()->findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        if (block.position() > from) result += breaks[kindBefore(block)];
        const int begin = std::max(0, from - block.position());
        result += block.text().mid(begin, to - block.position() - begin);
    }
    return result;
}

bool MemoBox::event(QEvent* event)
{
    return leftToMenus(event) ? false : QPlainTextEdit::event(event);
}

QMimeData* MemoBox::createMimeDataFromSelection() const
{
    auto* selected = new QMimeData;
    const QTextCursor cursor = textCursor();
    selected->setText(stored(cursor.selectionStart(), cursor.selectionEnd()).replace("\r\n", "\n"));
    return selected;
}

void MemoBox::insertFromMimeData(const QMimeData* source)
{
    const QString pasted = fitting(source->text());
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    Writer(cursor, pasted).write();
    cursor.endEditBlock();
    ensureCursorVisible();
}

QString MemoBox::fitting(const QString& text)
{
    QString lines = text;
    lines.replace("\r\n", "\n").replace('\r', '\n').replace(QChar::ParagraphSeparator, '\n').replace('\n', "\r\n");
    const qsizetype free = room();
    if (lines.size() <= free) return lines;
    qsizetype end = free;
    if (end > 0 && (lines.at(end - 1).isHighSurrogate() || lines.at(end - 1) == u'\r')) --end;
    lines.truncate(end);
    tellCut(text, end - lines.count('\r'), maxLength_);
    return lines;
}

void MemoBox::inputMethodEvent(QInputMethodEvent* event)
{
    const QString composed = isReadOnly() ? QString() : fitting(event->commitString());
    const bool lines = composed.contains(u'\n'); // written as breaks of the user, whatever stands before them
    event->setCommitString(lines ? QString() : composed, event->replacementStart(), event->replacementLength());
    QPlainTextEdit::inputMethodEvent(event);
    if (lines) Writer(textCursor(), composed).write();
}

void MemoBox::keyPressEvent(QKeyEvent* event)
{
    if (isReadOnly()) return QPlainTextEdit::keyPressEvent(event);
    if (typeBreak(event)) return;
    joinWordBefore(event);
    const bool isText = !event->text().isEmpty() && event->text().front().category() != QChar::Other_Control;
    if (isText && event->text().size() > room())
        tellFull(maxLength_);
    else
        QPlainTextEdit::keyPressEvent(event);
}

bool MemoBox::typeBreak(const QKeyEvent* event)
{
    if (!event->matches(QKeySequence::InsertParagraphSeparator) && !event->matches(QKeySequence::InsertLineSeparator))
        return false;
    if (room() < 2)
        tellFull(maxLength_);
    else
        textCursor().insertBlock(QTextBlockFormat(), QTextCharFormat());
    ensureCursorVisible();
    return true;
}

// Where a long word is broken, the key is for the character behind the break.
void MemoBox::joinWordBefore(const QKeyEvent* event)
{
    QTextCursor cursor = textCursor();
    if (cursor.hasSelection()) return;
    const auto isBroken = [](const QTextBlock& block) { return block.isValid() && kindBefore(block) == nothing; };
    if (event->key() == Qt::Key_Backspace && cursor.atBlockStart() && isBroken(cursor.block()))
        cursor.deletePreviousChar();
    else if (event->key() == Qt::Key_Delete && cursor.atBlockEnd() && isBroken(cursor.block().next()))
        cursor.deleteChar();
}

qsizetype MemoBox::room() const
{
    const QTextCursor cursor = textCursor();
    const qsizetype freed = stored(cursor.selectionStart(), cursor.selectionEnd()).size();
    return std::max<qsizetype>(0, maxLength_ - text().size() + freed);
}
