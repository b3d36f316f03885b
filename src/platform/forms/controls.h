// The controls of the forms, with what the program relies on.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>

#include <functional>

// Sets the background colour of a field, frame or button, and a text colour that can be read on it. An invalid colour
// gives back the colour of the desktop. backColor() is what was set last, else the one on the screen.
void setBackColor(QWidget* control, const QColor& color);
QColor backColor(const QWidget* control);

// How well one colour can be read on the other: from 1 to 21, and from 4.5 on as text.
double contrast(const QColor& a, const QColor& b);

// Sees to it that the control can be read while it is disabled, in the colours of the desktop, whatever they are; of a
// list also the row that is chosen. A control that has a background colour of its own can be anyway.
void keepReadableWhenDisabled(QWidget* control);

// The mask of every date field, and its text when nothing was typed.
inline constexpr auto dateMask = "##/##/####";
inline constexpr auto emptyMaskedDate = "__/__/____";

// Both fields of text give back what setText() was given, to the character, whatever its length, until the user changes
// it. Of a text that is too long they show the beginning, and the status line says so: the rest stays behind whatever
// the user makes of it, unless that is nothing. maxLength() is for the user: what is pasted, dropped or composed beyond
// it is cut, and told in a box behind the event, and the clipboard has the whole; a key beyond it is told in the status
// line.

// A line of text. Locked: it shows its text and takes the focus, and the user can't change it; the program can.
// textChanged() comes with every change, the program's too.
class TextBox : public QLineEdit
{
    Q_OBJECT
    Q_PROPERTY(bool locked READ isLocked WRITE setLocked)

public:
    explicit TextBox(QWidget* parent = nullptr);
    QString text() const;
    void setText(const QString& text);
    void clear() { setText({}); }
    bool isLocked() const { return isReadOnly(); }
    void setLocked(bool locked) { setReadOnly(locked); }
    int maxLength() const { return maxLength_; }
    void setMaxLength(int length);

protected:
    bool event(QEvent* event) override; // leaves Ctrl+A and the like to the menus

private:
    void refuse(); // what the line has just taken in part, or not at all
    void removeHalfCharacter();

    int maxLength_;
    qsizetype room_ = 0;            // before the event under way, for characters that replace the selected text
    QString rest_;                  // what isn't shown of a text that is too long
    const QEvent* event_ = nullptr; // the one under way
};

// Several lines of text, long words broken. A line break of the user is CR LF in text(). Tab goes on to the next field.
class MemoBox : public QPlainTextEdit
{
    Q_OBJECT
    Q_PROPERTY(bool locked READ isLocked WRITE setLocked)
    Q_PROPERTY(int maxLength READ maxLength WRITE setMaxLength)

public:
    explicit MemoBox(QWidget* parent = nullptr);
    QString text() const;
    void setText(const QString& text);
    void clear() { setText({}); }
    bool isLocked() const { return isReadOnly(); }
    void setLocked(bool locked) { setReadOnly(locked); }
    int maxLength() const { return maxLength_; } // a line break counts as two
    void setMaxLength(int length) { maxLength_ = length; }

protected:
    bool event(QEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString stored(int from, int to) const; // what stands between two positions of the document
    QString fitting(const QString& text);   // as much of it as has room, as lines; the user is told of the rest
    bool typeBreak(const QKeyEvent* event);
    void joinWordBefore(const QKeyEvent* event);
    qsizetype room() const; // for characters that replace the selected text

    int maxLength_ = 65535;
    QString rest_; // what isn't shown of a text that is too long
};

// A date field with two states. With the mask it shows "__/__/____" when empty, takes digits only, and its text always
// has ten characters. Without it, it is a plain field that shows "dd/mm/aaaa" in grey when it is empty, and empty is
// ""; d/m/yyyy and eight digits, blanks around them or not, become dd/mm/yyyy when it is left. text() is what it shows
// in either state. A new field has the mask. The Tab key selects what it holds, a click under the mask the day, the
// month or the year.
class MaskedEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit MaskedEdit(QWidget* parent = nullptr);

    QString mask() const { return mask_; }
    void setMask(const QString& mask); // dateMask or ""; the text stays as far as it fits
    QString text() const;
    void setText(const QString& text); // without the mask; under it, only an empty text

    bool isBlank() const; // empty, in either state

    // The three steps that clear the field and give it its mask back.
    void clearMasked();
    // Takes the mask off and sets the text: how a stored date is shown.
    void showPlain(const QString& text);

protected:
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QString mask_;
};

// A drop-down list whose entries have a text and a 32-bit number, 0 where none was given.
// The text of an entry is given back whole, whatever its length; its beginning is shown.
// No entry chosen is index -1, even after entries were added. clicked is emitted when the user picks an entry, even the
// one already chosen, and when the program changes the index; not when the list is cleared.
// Locked: it looks like a line of text, without its arrow, and can be focused; the list can't be opened, nor the choice
// changed by key or wheel.
class ComboBox : public QComboBox
{
    Q_OBJECT
    Q_PROPERTY(bool locked READ isLocked WRITE setLocked)

public:
    explicit ComboBox(QWidget* parent = nullptr);

    int add(const QString& text, qint32 itemData = 0); // index of the new entry
    QString list(int index) const;
    qint32 itemData(int index) const; // 0 for index -1
    void setItemData(int index, qint32 value);
    int listIndex() const { return currentIndex(); }
    void setListIndex(int index);                         // beyond the last entry, or 0 of an empty list: none
    QString text() const { return list(currentIndex()); } // "" where none is chosen
    void setText(const QString& text); // chooses the first entry with that text; none if there is none
    void clear();                      // no entries, nothing chosen, no event

    bool isLocked() const { return locked_; }
    void setLocked(bool locked);
    void showPopup() override;

    // Of a list whose entries aren't measured.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void clicked();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool locked_ = false;
};

// A list box with the same entries. The entry chosen is the one shown as chosen: the focus alone chooses none.
class ListBox : public QListWidget
{
    Q_OBJECT

public:
    explicit ListBox(QWidget* parent = nullptr);
    int add(const QString& text, qint32 itemData = 0);
    QString list(int index) const;
    qint32 itemData(int index) const;
    int listCount() const { return count(); }
    int listIndex() const { return currentRow(); }
    void setListIndex(int index);
    void removeItem(int index); // nothing is chosen afterwards

signals:
    void clicked();

protected:
    void focusInEvent(QFocusEvent* event) override;
};

// A button. Its accelerator moves the focus to it first, as a click of the mouse does (see Focus); Return clicks it
// when it has the focus.
class CommandButton : public QPushButton
{
    Q_OBJECT

public:
    explicit CommandButton(QWidget* parent = nullptr);
};

// One radio of a group. The radios of one frame are exclusive for the user; the program can switch each off.
class OptionButton : public QRadioButton
{
    Q_OBJECT

public:
    explicit OptionButton(QWidget* parent = nullptr);
    void setValue(bool on); // on: the others of the frame go off

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override; // with a mark of the focus that is plain on any background
};

struct GridColumn
{
    QString title;
    int width =
        -1; // in pixels of the usual font, 0 hides it; not given: as it is, and the last column takes what is left
};

// A grid as the program counts it: row 0 is the heading, and 0 rows is an empty grid. Cells are texts.
// A text is given back whole, whatever its length; its beginning is shown.
// A grid with rows below its heading has one of them chosen: the first, until setRow() or the user chooses another.
// picked is emitted only when the user picks a row, even the one already chosen.
class Grid : public QTableView
{
    Q_OBJECT

public:
    explicit Grid(QWidget* parent = nullptr);

    int rows() const;
    void setRows(int rows); // 0 empties the grid, heading included
    int cols() const;
    void setCols(int cols);
    // The columns with their titles in the heading. Precondition: the grid has a heading, setRows() behind 0.
    void setColumns(const QList<GridColumn>& columns);
    QString textMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, const QString& text);
    // Rows whose cells the source gives, for a row from 1 on. Each is read when it is first shown or asked for, so that
    // a hundred thousand appear at once. The heading stays.
    // Precondition: the source doesn't throw.
    void fill(int rows, std::function<QStringList(int row)> source);
    int row() const; // the row chosen; 0 if none is
    void setRow(int row);
    void setColWidth(int col, int width); // in pixels, 0 hides it; the last column takes what is left

signals:
    void picked();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void chooseFirstRow(); // where none is chosen

    class Model;
    Model* model_;
};
