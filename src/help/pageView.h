// Pages of the manual on the screen.
#pragma once

#include <QTextBrowser>

// Its pictures are as wide as they were taken, or as the view where that is narrower; letters, links and grounds have
// the colours of the desktop, whatever the page says of them. Nothing but pages of the folder that the page stands in
// is followed.
class PageView : public QTextBrowser
{
    Q_OBJECT

public:
    explicit PageView(QWidget* parent = nullptr);

    QVariant loadResource(int type, const QUrl& name) override;
    // Steps above the letters of the desktop, below 0 under them.
    int zoom() const { return zoom_; }
    void setZoom(int steps);

signals:
    void zoomed();

protected:
    void doSetSource(const QUrl& page, QTextDocument::ResourceType type) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QImage whole(const QString& picture) const;
    void fitPictures();
    void fit(QTextCursor& picture);
    void takeColors();
    void settle(const QUrl& page);
    void follow(const QUrl& link);

    QUrl folder_; // of the page; source() tells of the page before while one is read
    int zoom_ = 0;
    int fittedTo_ = 0; // the width that the pictures were made for
};
