#include "help/pageView.h"

#include "platform/desktop/desktop.h"
#include "platform/forms/controls.h"

#include <QEvent>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr int dotsAPoint = 2; // the pictures of the manual are taken at twice the scale
constexpr int leastZoom = -4, mostZoom = 12;
constexpr double readable = 4.5;
constexpr int takenWidth = QTextFormat::UserProperty; // of a picture, in points

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

// The colours of a page are those of paper.
QString withoutColors(const QByteArray& page)
{
    static const QRegularExpression colors(
        QStringLiteral(R"(<style>.*?</style>| bgcolor="[^"]*"| style="color:[^"]*")"),
        QRegularExpression::DotMatchesEverythingOption);
    return QString::fromUtf8(page).remove(colors);
}

} // namespace

PageView::PageView(QWidget* parent) : QTextBrowser(parent)
{
    setOpenLinks(false);
    document()->setDocumentMargin(14);
    connect(this, &QTextBrowser::anchorClicked, this, &PageView::follow);
    connect(this, &QTextBrowser::sourceChanged, this, &PageView::settle);
}

void PageView::follow(const QUrl& link)
{
    const QUrl page = source().resolved(link);
    if (page.isLocalFile() &&
        QFileInfo(page.toLocalFile()).absolutePath() == QFileInfo(source().toLocalFile()).absolutePath())
        setSource(page);
    else if (page.scheme() == "https" || page.scheme() == "http")
        Desktop::openUrl(page.toString(QUrl::FullyEncoded));
}

QVariant PageView::loadResource(int type, const QUrl& name)
{
    if (type == QTextDocument::ImageResource) return whole(name.toString());
    const QVariant page = QTextBrowser::loadResource(type, name);
    return type == QTextDocument::HtmlResource ? withoutColors(page.toByteArray()) : page;
}

QImage PageView::whole(const QString& picture) const
{
    return QImage(folder_.resolved(QUrl(picture)).toLocalFile());
}

// To be called anew when the view has another width.
void PageView::fitPictures()
{
    fittedTo_ = viewport()->width();
    QTextCursor found(document());
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            if (!part.fragment().charFormat().isImageFormat()) continue;
            found.setPosition(part.fragment().position());
            found.setPosition(part.fragment().position() + part.fragment().length(), QTextCursor::KeepAnchor);
            fit(found);
        }
}

void PageView::fit(QTextCursor& picture)
{
    QTextImageFormat format = picture.charFormat().toImageFormat();
    const QImage taken = whole(format.name());
    if (taken.isNull()) return;
    if (!format.hasProperty(takenWidth))
        format.setProperty(takenWidth, format.width() > 0 ? format.width() : double(taken.width()) / dotsAPoint);
    const double room = std::max(viewport()->width() - 2 * document()->documentMargin() - 2, 50.0);
    const double width = std::floor(std::min(room, format.doubleProperty(takenWidth)));
    format.setWidth(width);
    format.setHeight(width * taken.height() / taken.width());
    picture.setCharFormat(format);
    // Drawn as large as it is shown: the toolkit would leave out dots.
    const double scale = devicePixelRatioF();
    QImage shown = taken.scaledToWidth(qRound(width * scale), Qt::SmoothTransformation);
    shown.setDevicePixelRatio(scale);
    document()->addResource(QTextDocument::ImageResource, document()->baseUrl().resolved(QUrl(format.name())), shown);
}

void PageView::doSetSource(const QUrl& page, QTextDocument::ResourceType type)
{
    folder_ = page.adjusted(QUrl::RemoveFilename | QUrl::RemoveFragment);
    takeColors();
    QTextBrowser::doSetSource(page, type);
}

// The pictures have moved what stands below them.
void PageView::settle(const QUrl& page)
{
    fitPictures();
    if (page.hasFragment()) scrollToAnchor(page.fragment(QUrl::FullyDecoded));
}

void PageView::takeColors()
{
    const QString ground = palette().color(QPalette::AlternateBase).name();
    document()->setDefaultStyleSheet(QStringLiteral("h2 { margin-top: 24px; } h3 { margin-top: 16px; }"
                                                    "td, th { padding: 4px; }"
                                                    "a { color: %1; } .legenda { font-style: italic; }"
                                                    ".tecla { background-color: %2; font-weight: bold; }"
                                                    ".nota td { background-color: %2; }")
                                         .arg(linkColor(palette()).name(), ground));
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
    if (fittedTo_ != viewport()->width()) fitPictures();
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
