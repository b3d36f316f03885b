// What the generator writes, made fit for a page: without empty groups, with names of its own, and told in words.
#include "study/report/drawing_p.h"
#include "study/report/markup.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

namespace study::report {

namespace {

QString element(const char* name, const QString& given)
{
    return given.isEmpty() ? QString() : QString("<%1>").arg(name) + escaped(given) + QString("</%1>").arg(name);
}

// What says nothing: the usual value, or the font of a group, which each text tells itself.
bool isIdle(QStringView name, QStringView value, bool group)
{
    if (name == QLatin1String("vector-effect") || name == QLatin1String("baseProfile")) return true;
    if (name == QLatin1String("transform")) return value == QLatin1String("matrix(1,0,0,1,0,0)");
    if (name == QLatin1String("fill-opacity") || name == QLatin1String("stroke-opacity")) return value == u'1';
    if (name == QLatin1String("font-style")) return group || value == QLatin1String("normal");
    return group && name.startsWith(QLatin1String("font-"));
}

class Tidied
{
public:
    Tidied(const Chart& chart, QSize size) : chart_(chart), size_(size)
    {
        // Names of one page, in which the same hatching may stand in many drawings.
        static const QRegularExpression strange("[^A-Za-z0-9_-]");
        prefix_ = QString(chart.id).replace(strange, "_") + '-';
    }

    QByteArray of(const QByteArray& svg)
    {
        QXmlStreamReader reader(svg);
        while (!reader.atEnd()) {
            reader.readNext();
            if (reader.isStartElement())
                start(reader);
            else if (reader.isEndElement())
                end(reader);
            else if (reader.isCharacters() && inText_)
                out_ += reader.text().toString().toHtmlEscaped();
        }
        return out_.toUtf8();
    }

private:
    void start(QXmlStreamReader& reader)
    {
        const QStringView name = reader.name();
        if (name == QLatin1String("title") || name == QLatin1String("desc")) { // the generator's own
            reader.skipCurrentElement();
        } else if (name == QLatin1String("svg")) {
            out_ += QString("<svg xmlns=\"http://www.w3.org/2000/svg\" role=\"img\" width=\"%1\" height=\"%2\" "
                            "viewBox=\"0 0 %1 %2\">")
                        .arg(size_.width())
                        .arg(size_.height()) +
                    element("title", chart_.title) + element("desc", chart_.described);
        } else if (name == QLatin1String("g") || name == QLatin1String("defs")) {
            pending_ << opened(reader);
        } else {
            out_ += pending_.join(QString());
            pending_.clear();
            out_ += opened(reader);
            inText_ = name == QLatin1String("text");
        }
    }

    void end(const QXmlStreamReader& reader)
    {
        const QStringView name = reader.name();
        const bool group = name == QLatin1String("g") || name == QLatin1String("defs");
        if (group && !pending_.isEmpty()) // nothing stands in it
            pending_.removeLast();
        else
            out_ += "</" + name.toString() + '>';
        inText_ = false;
    }

    QString opened(const QXmlStreamReader& reader) const
    {
        const bool group = reader.name() == QLatin1String("g");
        QString opening = '<' + reader.name().toString();
        for (const QXmlStreamAttribute& attribute : reader.attributes()) {
            if (isIdle(attribute.name(), attribute.value(), group)) continue;
            QString value = attribute.value().toString();
            if (attribute.name() == QLatin1String("id")) value.prepend(prefix_);
            if (value.startsWith(QLatin1String("url(#"))) value.insert(5, prefix_);
            if (attribute.name() == QLatin1String("font-family"))
                value += ", 'DejaVu Sans', Verdana, Arial, sans-serif";
            opening += ' ' + attribute.qualifiedName().toString() + "=\"" + value.toHtmlEscaped() + '"';
        }
        return opening + '>';
    }

    const Chart& chart_;
    QSize size_;
    QString prefix_;
    QString out_;
    QStringList pending_; // groups that nothing has been put into yet
    bool inText_ = false;
};

} // namespace

QByteArray tidiedSvg(const QByteArray& svg, const Chart& chart, QSize size)
{
    return Tidied(chart, size).of(svg);
}

} // namespace study::report
