// What the program paints, so that the bare side paints the same.
#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QRegion>
#include <QWidget>

#include <vector>

namespace bench {

// From start() to stop() it notes every widget that is painted, and where.
class Painted : public QObject
{
public:
    Painted();

    void start();
    void stop(); // and works out which widgets have to be asked

    double area() const; // thousands of pixels since the last start(), of all widgets, each as often as it was painted

    // Asks for the same to be painted again, as far as the widgets are still on the screen. A widget is asked for what
    // none of those within it covers: what lies behind them is painted with them, and would be painted twice.
    void askAgain() const;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct Place
    {
        QPointer<QWidget> widget;
        QRegion region;
    };

    QRegion behind(const QWidget& widget) const; // what those within it have painted, in its coordinates

    bool on_ = false;
    double area_ = 0;
    std::vector<Place> places_;
    std::vector<Place> toAsk_;
    QHash<const QWidget*, std::size_t> placeOf_;
};

} // namespace bench
