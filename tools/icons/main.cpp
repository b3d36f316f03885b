// orv-icons SOURCE.svg FOLDER/KIND/NAME SIZE...: draws the picture in each size, as FOLDER/16x16/KIND/NAME.png and so
// on. The same picture gives the same bytes: no file tells when it was made.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>

namespace {

bool draw(QSvgRenderer& picture, int size, const QString& target)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    painter.end();
    return QDir().mkpath(QFileInfo(target).path()) && image.save(target, "PNG");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4) {
        std::fputs("usage: orv-icons SOURCE.svg FOLDER/KIND/NAME SIZE...\n", stderr);
        return 2;
    }
    QSvgRenderer picture;
    if (!picture.load(QFile::decodeName(argv[1]))) {
        std::fprintf(stderr, "%s: no picture can be read.\n", argv[1]);
        return 1;
    }
    const QFileInfo name(QFile::decodeName(argv[2]));
    const QDir kind = name.dir();
    for (int i = 3; i < argc; ++i) {
        const int size = std::atoi(argv[i]);
        const QString target = QStringLiteral("%1/../%2x%2/%3/%4.png")
                                   .arg(kind.path(), QString::number(size), kind.dirName(), name.fileName());
        if (size > 0 && draw(picture, size, QDir::cleanPath(target))) continue;
        std::fprintf(stderr, "%s: can't be drawn as %s\n", argv[1], qUtf8Printable(target));
        return 1;
    }
    return 0;
}
