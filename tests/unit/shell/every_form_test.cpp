// What holds for every form that is made known, however many there will be.
#include "shell/everyForm.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>

TEST_F(EveryForm, ReturnPressesTheButtonThatHasTheFocus)
{
    forEach([](Form& form) {
        for (const auto* button : form.findChildren<QPushButton*>())
            EXPECT_TRUE(button->autoDefault()) << qPrintable(form.name() + '.' + button->objectName());
    });
}

TEST_F(EveryForm, WhatItsFieldsHoldCanBeReadWhileTheyAreDisabled)
{
    forEach([](Form& form) {
        const auto expectReadable = [&](const QWidget* control, QPalette::ColorRole text, QPalette::ColorRole back) {
            const QPalette& palette = control->palette();
            EXPECT_GE(contrast(palette.color(QPalette::Disabled, text), palette.color(QPalette::Disabled, back)), 4.5)
                << qPrintable(form.name() + '.' + control->objectName());
        };
        for (const auto* box : form.findChildren<QCheckBox*>())
            expectReadable(box, QPalette::WindowText, QPalette::Window);
        for (const auto* frame : form.findChildren<QGroupBox*>())
            if (!frame->title().isEmpty()) expectReadable(frame, QPalette::WindowText, QPalette::Window);
        for (const auto* combo : form.findChildren<ComboBox*>())
            expectReadable(combo, QPalette::Text, QPalette::Base);
        for (const auto* field : form.findChildren<TextBox*>())
            expectReadable(field, QPalette::Text, QPalette::Base);
        for (const auto* grid : form.findChildren<Grid*>()) {
            expectReadable(grid, QPalette::Text, QPalette::Base);
            expectReadable(grid, QPalette::HighlightedText, QPalette::Highlight);
            expectReadable(grid->horizontalHeader(), QPalette::ButtonText, QPalette::Button);
        }
    });
}

TEST_F(EveryForm, TheIconsOfItsButtonsAreSeenOnALightAndOnADarkDesktop)
{
    forEach([](Form& form) {
        for (const auto* button : form.findChildren<QPushButton*>()) {
            if (button->icon().isNull()) continue;
            const QImage icon = button->icon().pixmap(24).toImage();
            for (const QColor& desktop : {QColor(239, 239, 239), QColor(49, 54, 59)}) {
                double plainest = 1;
                for (int x = 0; x < icon.width(); ++x)
                    for (int y = 0; y < icon.height(); ++y)
                        if (const QColor dot = icon.pixelColor(x, y); dot.alpha() == 255)
                            plainest = std::max(plainest, contrast(dot, desktop));
                EXPECT_GE(plainest, 3) << qPrintable(form.name() + '.' + button->objectName() + ' ' + desktop.name());
            }
        }
    });
}

TEST_F(EveryForm, CutsNoLabel)
{
    setSessionCaption("ORV - BDP: São Salvador de Ribeira de Cima e Santa Maria de Ribeira de Baixo");
    forEach([](Form& form) {
        for (const auto* label : form.findChildren<QLabel*>()) {
            if (!label->isVisible() || label->text().isEmpty()) continue;
            const int needed = label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
            EXPECT_GE(label->height(), needed) << qPrintable(form.name() + '.' + label->objectName());
            EXPECT_TRUE(label->wordWrap() || label->width() >= label->sizeHint().width())
                << qPrintable(form.name() + '.' + label->objectName());
        }
    });
}

TEST_F(EveryForm, OpensWhollyWithinTheDocumentAreaOfASmallLaptop)
{
    forEach([this](Form& form) {
        if (!form.isChild()) return;
        const QRect there = form.parentWidget()->geometry();
        EXPECT_TRUE(area->viewport()->rect().contains(there))
            << qPrintable(form.name()) << ' ' << there.x() << ' ' << there.y() << ' ' << there.width() << 'x'
            << there.height() << ", at least " << form.minimumSizeHint().height();
    });
}

TEST_F(EveryForm, TakesTheSizeThatWasDrawn)
{
    window.resize(2000, 1500);
    QCoreApplication::processEvents();
    Form* card = Forms::show("frmInd");
    EXPECT_EQ(card->size(), QSize(760, 600).expandedTo(card->minimumSizeHint()));
    Form* list = Forms::show("frmConcelhos");
    EXPECT_EQ(list->size(), QSize(520, 480).expandedTo(list->minimumSizeHint()));
}
