#include "help/pageView.h"

#include "platform/desktop/desktop.h"
#include "platform/forms/controls.h"

#include <QEvent>
#include <QFileInfo>
#include <QScrollBar>
#include <QTextDocument>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr int dotsAPoint = 2; // the pictures of the manual are taken at twice the scale
constexpr int leastZoom = -4, mostZoom = 12;
constexpr double readable = 4.5;

// The colour of the desktop for links, or where that can't be read on a page, one between it and the text.
QColor linkColor(const QPalette& palette)
{
    const QColor link = palette.color(QPalette::Link), text = palette.color(QPalette::Text);
    const QColor back = palette.color(QPalette::Base);
    for (int share = 100; share > 0; share -= 10) {
        const auto mix = [share](int a, int b) { return (share * a + (100 - share) * b) / 100; };
        const QColor mixed(mix(link.red(), text.red()), mix(link.green(), text.green()), mix(link.blue(), text.blue()));
        if (contrast(mixed, back) >= readable) return mixed;
    }
    return text;
}

} // namespace

PageView::PageView(QWidget* parent) : QTextBrowser(parent)
{
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this, &PageView::follow);
}

void PageView::follow(const QUrl& link)
{
    const QUrl page = source().resolved(link);
    if (page.isLocalFile() && QFileInfo(page.toLocalFile()).absolutePath() ==
                                  QFileInfo(source().toLocalFile()).absolutePath())
        setSource(page);
    else if (page.scheme() == "https" || page.scheme() == "http")
        Desktop::openUrl(page.toString(QUrl::FullyEncoded));
}

QVariant PageView::loadResource(int type, const QUrl& name)
{
    if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
    const QUrl picture = source().resolved(name);
    pictures_ << picture;
    return fitted(picture);
}

QImage PageView::fitted(const QUrl& picture) const
{
    const QImage whole(picture.toLocalFile());
    if (whole.isNull()) return whole;
    const double scale = devicePixelRatioF();
    const int room = std::max(viewport()->width() - 2 * qCeil(document()->documentMargin()), 50);
    const int wide = std::min(room, whole.width() / dotsAPoint);
    QImage shown = whole.scaledToWidth(qRound(wide * scale), Qt::SmoothTransformation);
    shown.setDevicePixelRatio(scale);
    return shown;
}

void PageView::fitPictures()
{
    if (fittedTo_ == viewport()->width() || pictures_.isEmpty()) return;
    fittedTo_ = viewport()->width();
    for (const QUrl& picture : std::as_const(pictures_))
        document()->addResource(QTextDocument::ImageResource, picture, fitted(picture));
    document()->markContentsDirty(0, document()->characterCount());
}

void PageView::doSetSource(const QUrl& page, QTextDocument::ResourceType type)
{
    if (page.adjusted(QUrl::RemoveFragment) != source().adjusted(QUrl::RemoveFragment)) pictures_.clear();
    takeColors();
    fittedTo_ = viewport()->width();
    QTextBrowser::doSetSource(page, type);
}

void PageView::takeColors()
{
    document()->setDefaultStyleSheet(QStringLiteral("a { color: %1; }").arg(linkColor(palette()).name()));
}

void PageView::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || source().isEmpty()) return;
    const int line = verticalScrollBar()->value();
    takeColors();
    reload();
    verticalScrollBar()->setValue(line);
}

void PageView::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    fitPictures();
}

void PageView::setZoom(int steps)
{
    steps = std::clamp(steps, leastZoom, mostZoom);
    if (steps == zoom_) return;
    zoomIn(steps - zoom_);
    zoom_ = steps;
    emit zoomed();
}

void PageView::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) return QTextBrowser::wheelEvent(event);
    setZoom(zoom_ + (event->angleDelta().y() > 0 ? 1 : -1));
    event->accept();
}
