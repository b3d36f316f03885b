#include "kit/painted.h"

#include <QCoreApplication>
#include <QPaintEvent>

namespace bench {

Painted::Painted()
{
    QCoreApplication::instance()->installEventFilter(this);
}

void Painted::start()
{
    places_.clear();
    placeOf_.clear();
    area_ = 0;
    on_ = true;
}

void Painted::stop()
{
    on_ = false;
    toAsk_.clear();
    for (const Place& place : places_)
        if (place.widget)
            if (QRegion region = place.region - behind(*place.widget); !region.isEmpty())
                toAsk_.push_back({place.widget, region});
}

QRegion Painted::behind(const QWidget& widget) const
{
    QRegion covered;
    for (const Place& within : places_)
        if (within.widget && within.widget != &widget && widget.isAncestorOf(within.widget))
            covered += within.region.translated(within.widget->mapTo(&widget, QPoint()));
    return covered;
}

double Painted::area() const
{
    return area_ / 1000;
}

void Painted::askAgain() const
{
    for (const Place& place : toAsk_)
        if (place.widget && place.widget->isVisible()) place.widget->update(place.region);
}

bool Painted::eventFilter(QObject* object, QEvent* event)
{
    if (!on_ || event->type() != QEvent::Paint || !object->isWidgetType()) return false;
    auto* widget = static_cast<QWidget*>(object);
    const QRegion& region = static_cast<QPaintEvent*>(event)->region();
    for (const QRect& rect : region)
        area_ += static_cast<double>(rect.width()) * rect.height();
    const auto known = placeOf_.constFind(widget);
    if (known == placeOf_.constEnd()) {
        placeOf_.insert(widget, places_.size());
        places_.push_back({widget, region});
    } else {
        places_[*known].region += region;
    }
    return false;
}

} // namespace bench
