#include "platform/forms/controls.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QProxyStyle>
#include <QSet>
#include <QStyleOptionComplex>
#include <QTest>

#include <functional>

namespace {

const QColor editing(192, 192, 255), consulting(Qt::white), searching(255, 192, 128), orange(255, 128, 0),
    night(0, 0, 140);

// The colour that most of the control is painted in.
QColor painted(QWidget& control)
{
    const QImage image = control.grab().toImage();
    QHash<QRgb, int> count;
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            ++count[image.pixel(x, y)];
    QRgb most = 0;
    for (auto it = count.cbegin(); it != count.cend(); ++it)
        if (it.value() > count.value(most)) most = it.key();
    return QColor(most);
}

// A frame may be shaded by the style of the desktop.
bool isNear(const QColor& a, const QColor& b)
{
    return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue()) <= 6;
}

template <class Control>
void expectPainted(std::initializer_list<QColor> colors)
{
    Control control;
    control.resize(160, 60);
    const QColor before = backColor(&control);
    const QColor own = painted(control);
    for (const QColor& color : colors) {
        for (const bool enabled : {true, false}) {
            control.setEnabled(enabled);
            setBackColor(&control, color);
            EXPECT_EQ(backColor(&control), color);
            EXPECT_TRUE(isNear(painted(control), color)) << control.metaObject()->className() << enabled;
        }
    }
    control.setEnabled(true);
    setBackColor(&control, {});
    EXPECT_EQ(backColor(&control), before);
    EXPECT_EQ(painted(control), own);
}

// How well the mark of what is chosen stands out, at its plainest, while the control is disabled.
double plainness(QAbstractButton& control)
{
    control.setEnabled(false);
    const auto shown = [&](bool chosen) {
        control.setChecked(chosen);
        return control.grab().toImage();
    };
    if (auto* radio = qobject_cast<OptionButton*>(&control)) radio->setAutoExclusive(false);
    const QImage chosen = shown(true);
    const QImage empty = shown(false);
    double plainest = 1;
    for (int x = 0; x < empty.width(); ++x)
        for (int y = 0; y < empty.height(); ++y)
            plainest = std::max(plainest, contrast(chosen.pixelColor(x, y), empty.pixelColor(x, y)));
    return plainest;
}

double light(const QColor& color)
{
    return 0.299 * color.red() + 0.587 * color.green() + 0.114 * color.blue();
}

// The palettes that the style is asked to draw with, as it knows them.
class Witness : public QProxyStyle
{
public:
    mutable QSet<qint64> palettes;

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override
    {
        palettes << option->palette.cacheKey();
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
};

template <class Control>
qsizetype palettesOfManyChanges(const std::function<void(Control&)>& fill)
{
    Witness style;
    QWidget window;
    QList<Control*> controls;
    for (int i = 0; i < 3; ++i) {
        auto* control = new Control(&window);
        fill(*control);
        control->setGeometry(0, 60 * i, 160, 60);
        for (QWidget* part : control->template findChildren<QWidget*>())
            part->setStyle(&style);
        control->setStyle(&style);
        controls << control;
    }
    window.show();
    for (int i = 0; i < 100; ++i)
        for (const QColor& color : {editing, consulting}) {
            for (Control* control : std::as_const(controls))
                setBackColor(control, color);
            window.grab();
        }
    return style.palettes.size();
}

} // namespace

TEST(BackColor, AFieldIsReallyPaintedInItsColour)
{
    expectPainted<TextBox>({editing, consulting, searching});
    expectPainted<MaskedEdit>({editing, consulting, searching});
    expectPainted<MemoBox>({editing, consulting, searching});
    expectPainted<ComboBox>({editing, consulting, searching});
    expectPainted<ListBox>({editing, consulting, searching});
    expectPainted<Grid>({editing, consulting, searching});
}

TEST(BackColor, SoAreRadiosAndFrames)
{
    expectPainted<OptionButton>({orange, night});
    expectPainted<QCheckBox>({orange, night});
    expectPainted<QGroupBox>({orange, night});
    expectPainted<QLabel>({orange, night});
}

TEST(BackColor, TheTextCanBeReadOnIt)
{
    TextBox field;
    OptionButton radio;
    for (const QColor& color : {editing, consulting, searching, orange, night}) {
        setBackColor(&field, color);
        setBackColor(&radio, color);
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            EXPECT_GT(std::abs(light(field.palette().color(group, QPalette::Text)) - light(color)), 60);
            EXPECT_GT(std::abs(light(radio.palette().color(group, QPalette::WindowText)) - light(color)), 60);
        }
    }
}

TEST(BackColor, TheTextIsChosenByHowWellItCanBeRead)
{
    TextBox field;
    for (const QColor& color : {editing, consulting, searching, orange, night, QColor(48, 140, 198), QColor(0, 150, 0),
                                QColor(Qt::darkGray), QColor(Qt::magenta)})
    {
        setBackColor(&field, color);
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            EXPECT_GE(contrast(field.palette().color(group, QPalette::Text), color), 4.5) << qPrintable(color.name());
            EXPECT_GE(contrast(field.palette().color(group, QPalette::PlaceholderText), color), 4.5);
        }
    }
}

TEST(BackColor, ADateThatIsDisabledCanBeReadOnAnyDesktop)
{
    const QPalette before = QApplication::palette();
    for (const QColor& window : {QColor(239, 239, 239), QColor(35, 38, 41), QColor(Qt::black), QColor(Qt::white)}) {
        QApplication::setPalette(QPalette(window));
        MaskedEdit date;
        OptionButton radio;
        QWidget top;
        MaskedEdit changed(&top);
        for (const bool enabled : {true, false}) {
            date.setEnabled(enabled);
            radio.setEnabled(enabled);
            const QPalette::ColorGroup group = enabled ? QPalette::Active : QPalette::Disabled;
            EXPECT_GE(
                contrast(date.palette().color(group, QPalette::Text), date.palette().color(group, QPalette::Base)), 4.5)
                << qPrintable(window.name()) << enabled;
            EXPECT_GE(contrast(radio.palette().color(group, QPalette::WindowText),
                               radio.palette().color(group, QPalette::Window)),
                      4.5)
                << qPrintable(window.name()) << enabled;
        }
    }
    QApplication::setPalette(before);
}

TEST(BackColor, ADateCanStillBeReadWhenTheDesktopTurnsDark)
{
    const QPalette before = QApplication::palette();
    MaskedEdit date;
    date.setEnabled(false);
    date.show();
    QApplication::setPalette(QPalette(QColor(35, 38, 41)));
    QCoreApplication::processEvents();
    EXPECT_GE(contrast(date.palette().color(QPalette::Text), date.palette().color(QPalette::Base)), 4.5);
    QApplication::setPalette(before);
}

TEST(BackColor, WhatIsChosenCanBeReadWhileItIsDisabled)
{
    const QPalette before = QApplication::palette();
    for (const QColor& window : {QColor(239, 239, 239), QColor(49, 54, 59), QColor(Qt::black)}) {
        QApplication::setPalette(QPalette(window));
        for (const QColor& color : {QColor(), QApplication::palette().color(QPalette::Highlight), orange}) {
            OptionButton radio;
            setBackColor(&radio, color);
            EXPECT_GE(plainness(radio), 4.5) << qPrintable(window.name() + ' ' + color.name());
            QCheckBox box;
            keepReadableWhenDisabled(&box);
            EXPECT_GE(plainness(box), 4.5) << qPrintable(window.name());
        }
    }
    QApplication::setPalette(before);
}

TEST(BackColor, TheFocusOfARadioIsPlainOnItsBackground)
{
    const QColor highlight = QApplication::palette().color(QPalette::Highlight);
    for (const QColor& color : {highlight, orange}) {
        QWidget frame;
        OptionButton radio(&frame);
        OptionButton other(&frame);
        for (OptionButton* each : {&radio, &other}) {
            each->setText(QStringLiteral("M"));
            setBackColor(each, color);
        }
        other.move(0, 40);
        frame.show();
        frame.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
        radio.setFocus(Qt::TabFocusReason);
        const QImage with = radio.grab().toImage();
        const QPoint edge(with.width() / 2, 0);
        EXPECT_GE(contrast(with.pixelColor(edge), color), 3);
        EXPECT_LT(contrast(other.grab().toImage().pixelColor(edge), color), 1.5);
    }
}

TEST(BackColor, AListThatIsLockedHasNoArrow)
{
    ComboBox list;
    list.resize(160, 30);
    list.add(QStringLiteral("Viúvo"));
    list.setListIndex(0);
    setBackColor(&list, consulting);
    const auto arrow = [&] { return list.grab(QRect(130, 6, 24, 18)).toImage(); };
    const QImage open = arrow();
    list.setLocked(true);
    const QImage locked = arrow();
    EXPECT_NE(open, locked);
    EXPECT_EQ(locked.pixelColor(12, 9), consulting);
    bool plain = true;
    for (int x = 0; x < locked.width(); ++x)
        for (int y = 0; y < locked.height(); ++y)
            plain &= locked.pixelColor(x, y) == consulting;
    EXPECT_TRUE(plain);
}

TEST(BackColor, ALockedFieldKeepsItsColour)
{
    TextBox field;
    field.resize(160, 30);
    setBackColor(&field, editing);
    field.setLocked(true);
    EXPECT_EQ(painted(field), editing);
}

TEST(BackColor, FieldsInsideAColouredFrameKeepTheirOwn)
{
    QGroupBox frame;
    TextBox field(&frame);
    field.resize(100, 30);
    const QColor before = painted(field);
    setBackColor(&frame, night);
    EXPECT_EQ(painted(field), before);
}

// The style keeps a picture for each.
TEST(BackColor, ManyChangesGiveTheStyleOnePaletteAColour)
{
    EXPECT_EQ(palettesOfManyChanges<ComboBox>([](ComboBox& list) { list.add(QStringLiteral("Viúvo")); }), 2);
    EXPECT_EQ(palettesOfManyChanges<MemoBox>([](MemoBox& memo) { memo.setText(QString("linha\r\n").repeated(20)); }),
              2);
}

TEST(BackColor, SetAgainItFollowsTheDesktop)
{
    const QPalette before = QApplication::palette();
    for (const QColor& window : {QColor(239, 239, 239), QColor(49, 54, 59), QColor(Qt::black)}) {
        OptionButton radio;
        ComboBox list;
        list.resize(160, 30);
        const auto color = [&] {
            setBackColor(&radio, orange);
            setBackColor(&list, editing);
        };
        color();
        painted(list);
        QApplication::setPalette(QPalette(window));
        QCoreApplication::processEvents();
        color();
        EXPECT_GE(plainness(radio), 4.5) << qPrintable(window.name());
        EXPECT_EQ(painted(list), editing);
        EXPECT_EQ(list.palette().color(QPalette::Button), QApplication::palette().color(QPalette::Button));
        QApplication::setPalette(before);
    }
}
