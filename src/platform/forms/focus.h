// Entering and leaving fields, as the cards understand it.
#pragma once

#include <QObject>
#include <QWidget>

#include <functional>

// Watches the focus of the whole program. A field is left when the focus moves to another control of the program's
// forms, or to a form itself; not when a window loses the desktop's focus, a box or a menu comes up, or the field is
// re-entered. The leave routine runs to its end, with the boxes that it brings, before the control that took the focus
// sees the click that brought it there; and that click is lost if the routine moved the focus elsewhere, unless it asks
// for the click.
namespace Focus {

// Precondition of the calls below: this ran before the first form, and again after each window that the document area
// got.
void install();

// Runs `entered` when `field` gets the focus, `left` when it loses it. Either may be empty.
void watch(QWidget* field, std::function<void()> entered, std::function<void()> left);

// Moves the focus to `field`, in its form, bringing its tab page to the front. Within a leave routine it takes effect
// after the routine and before the user's next event; `entered` of that field then runs again.
void setTo(QWidget* field);

// For a leave routine that gives the field its focus back: the click that took it away reaches its control all the
// same.
void keepClick();

// Takes the focus off every control, to the form itself.
void release();

// Reports that the control of `form` that had the focus was disabled or hidden: it doesn't count as left.
void drop(QWidget* form);

} // namespace Focus
