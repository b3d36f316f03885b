#include "platform/desktop/document.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

namespace {

using Desktop::Document;

constexpr auto harmless =
    "png jpg jpeg jpe jfif gif bmp dib tif tiff webp heic heif avif jp2 j2k jxl ppm pgm pbm pnm tga "
    "ico pcx psd xcf djvu djv pdf "
    "txt text csv tsv md log rtf "
    "doc dot docx dotx odt ott xls xlt xlsx xltx ods ots ppt pps pptx ppsx odp otp odg wpd wps "
    "pages numbers key";

constexpr auto programs =
    "exe com scr pif bat cmd msi msp mst msix msixbundle appx appxbundle appinstaller application "
    "appref-ms cpl dll sys drv ocx gadget hta inf ins isp job reg rgs msc scf lnk url website "
    "webloc library-ms search-ms searchconnector-ms settingcontent-ms theme themepack "
    "deskthemepack diagcab diagcfg diagpkg chm hlp xll xla xlam wll ade adp accda accde mde mda "
    "iqy oqy rqy "
    "js jse mjs cjs vb vbs vbe ws wsf wsc wsh sct shb shs ps1 ps1xml ps2 psc1 psc2 psm1 psd1 "
    "msh msh1 msh2 jar jnlp class "
    "desktop kdelnk directory service sh bash csh tcsh ksh zsh fish command run bin out elf so ko "
    "appimage flatpak flatpakref flatpakrepo snap snapd deb rpm apk pkg mpkg dmg app workflow "
    "action scpt scptd applescript terminal tool "
    "py pyc pyo pyw pyz pyzw pl pm rb php phar tcl lua awk expect xpi crx";

// What a program, a script or a shortcut begins with, whatever its name.
constexpr QByteArrayView beginnings[]{
    "\177ELF",
    "MZ",
    "#!",
    "\xEF\xBB\xBF#!",
    "\xFE\xED\xFA\xCE",
    "\xFE\xED\xFA\xCF",
    "\xCE\xFA\xED\xFE",
    "\xCF\xFA\xED\xFE",
    "\xCA\xFE\xBA\xBE",
    "!<arch>\n",
    "\xED\xAB\xEE\xDB",
};

bool isOneOf(const char* list, const QString& suffix)
{
    return QString::fromLatin1(list).split(u' ').contains(suffix);
}

QString suffixOf(const QString& path)
{
    const QString name = path.section(u'/', -1).section(u'\\', -1);
    return name.contains(u'.') ? name.section(u'.', -1).toLower() : QString();
}

// The desktop of another system leaves out points and blanks at the end of a name.
QString suffixElsewhere(const QString& path)
{
    static const QRegularExpression end(QStringLiteral("[. ]+$"));
    return suffixOf(QString(path).remove(end));
}

bool beginsAsProgram(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false; // the desktop can't read it, either
    const QByteArray begin = file.read(1024);
    for (const QByteArrayView known : beginnings)
        if (begin.startsWith(known)) return true;
    if (begin.startsWith(QByteArray("L\0\0\0\x01\x14\x02\0", 8))) return true;
    static const QRegularExpression shortcut(
        QStringLiteral(R"(^(\xEF\xBB\xBF)?\s*(#[^\n]*\n\s*)*\[(Desktop Entry|KDE Desktop Entry|)"
                       R"(InternetShortcut|Shell)\])"),
        QRegularExpression::CaseInsensitiveOption);
    return QString::fromLatin1(begin).contains(shortcut);
}

bool isElsewhere(const QString& path)
{
    static const QRegularExpression server(QStringLiteral(R"(^\s*[\\/]{2})"));
    static const QRegularExpression scheme(QStringLiteral(R"(^\s*[A-Za-z][A-Za-z0-9+.-]+:)"));
    if (path.contains(server)) return true;
    return path.contains(scheme) && !QFileInfo(path).isFile(); // a name may hold a colon
}

} // namespace

Document Desktop::documentAt(const QString& path)
{
    if (isElsewhere(path)) return Document::Elsewhere;
    const QFileInfo file(path);
    if (!file.isFile()) return Document::Missing;
    const QString target = file.canonicalFilePath();
    const QStringList suffixes{suffixOf(path), suffixOf(target)};
    for (const QString& name : {path, target})
        if (isOneOf(programs, suffixOf(name)) || isOneOf(programs, suffixElsewhere(name))) return Document::Program;
    if (beginsAsProgram(target)) return Document::Program;
    if (isOneOf(harmless, suffixes.first()) && isOneOf(harmless, suffixes.last())) return Document::Harmless;
    return suffixes.last().isEmpty() && file.isExecutable() ? Document::Program : Document::Unknown;
}
