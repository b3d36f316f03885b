#include "study/exchange/gedcomCuts.h"
#include "study/exchange/gedcomSource.h"
#include "study/exchange/gedcomStructure.h"

namespace study::exchange {

namespace {

constexpr int mostLines = 250000;
constexpr qsizetype mostLetters = 1 << 25;
constexpr int linesLookedAt = 200000; // for how texts are cut

bool isForeign(QChar letter)
{
    return letter.unicode() > 0x7F;
}

QString hexOf(QChar unit)
{
    return "0x" + QString::number(unit.unicode(), 16).toUpper();
}

// A text of UTF-16, in which halves of a pair that stand alone are a guess.
GedcomText checked(const QString& letters)
{
    GedcomText read{letters, {}};
    for (qsizetype at = 0; at < letters.size(); ++at) {
        if (letters[at].isHighSurrogate() && at + 1 < letters.size() && letters[at + 1].isLowSurrogate())
            ++at;
        else if (letters[at].isSurrogate()) {
            read.guessed << at;
            read.text[at] = QChar::ReplacementCharacter;
        }
    }
    return read;
}

} // namespace

const GedcomNode* GedcomNode::child(const char* sought) const
{
    for (const GedcomNode& each : children)
        if (each.tag == QLatin1String(sought)) return &each;
    return nullptr;
}

QString GedcomNode::text(const char* sought) const
{
    const GedcomNode* found = child(sought);
    return found ? found->value : QString();
}

// Puts lines together to records.
class GedcomReader::Records
{
public:
    explicit Records(QIODevice& device) : source_(device) {}

    GedcomHead readHead();
    bool next(GedcomNode& record);
    const GedcomProblems& problems() const { return problems_; }
    double done() const { return ended_ ? 1.0 : source_.done(); }

private:
    // A structure below which the next line may stand. Where each further line of its value begins is kept until it is
    // whole.
    struct Piece
    {
        qsizetype from = 0;
        int line = 0;
    };
    struct Open
    {
        GedcomNode* node = nullptr;
        int level = 0;
        std::vector<Piece> pieces = {};
    };

    bool nextLine(GedcomStructureLine& line);
    bool readRecord(GedcomNode& record);
    void begin(GedcomNode& record, GedcomStructureLine& line);
    void take(GedcomStructureLine& line);
    void open(GedcomStructureLine& line);
    Open& continuedBy(const GedcomStructureLine& line);
    void carryOn(const GedcomStructureLine& line);
    void append(Open& continued, const GedcomStructureLine& line, bool onNewLine);
    void close(const Open& ended);
    void makeReadable(QString& letters, int firstLine, const std::vector<Piece>& further);
    void countIn(const GedcomStructureLine& line);
    void lookAtCuts();
    void tellOfRest();

    GedcomSource source_;
    GedcomProblems problems_ = {};
    GedcomEncoding encoding_ = GedcomEncoding::Utf8;
    bool is70_ = false, isRaw_ = false, ended_ = false;
    bool addBlanks_ = false;           // at each CONC
    GedcomStructureLine waiting_ = {}; // the first one of the next record
    bool isWaiting_ = false;
    int blankLines_ = 0; // before the line at hand
    int lastLine_ = 0;
    std::vector<Open> open_ = {};
    int lines_ = 0; // of the record at hand, as its letters
    qsizetype letters_ = 0;
};

bool GedcomReader::Records::nextLine(GedcomStructureLine& line)
{
    GedcomLine read;
    blankLines_ = 0;
    while (source_.next(read, problems_)) {
        lastLine_ = read.number;
        line = structureLine(read);
        if (!line.isBlank()) return true;
        ++blankLines_;
    }
    return false;
}

// HEAD is read twice: its letters are only known when it has been read once.
GedcomHead GedcomReader::Records::readHead()
{
    const auto headOf = [this](GedcomNode& head) {
        GedcomStructureLine first;
        if (!nextLine(first) || first.level != 0 || first.tag != "HEAD")
            refuseGedcom(qMax(1, first.number), "o ficheiro não é GEDCOM: devia começar por \"0 HEAD\".");
        waiting_ = first;
        isWaiting_ = true;
        readRecord(head);
    };
    GedcomNode head;
    isRaw_ = true;
    headOf(head);
    isRaw_ = false;
    const GedcomNode* gedcom = head.child("GEDC");
    GedcomHead told;
    told.version = gedcom ? gedcom->text("VERS").trimmed() : QString();
    is70_ = told.version.startsWith(u'7');
    GedcomEncodingFound found{GedcomEncoding::Utf16};
    if (source_.is8Bit())
        found = encodingOf(is70_ ? QString("UTF-8") : head.text("CHAR").trimmed(), source_.foreignBytes());
    told.encoding = encoding_ = found.encoding;
    problems_ = {};
    if (!is70_) lookAtCuts();
    source_.restart();
    if (!found.problem.isEmpty()) problems_.tell(GedcomDoubt::Encoding, 1, found.problem);
    headOf(head);
    told.source = head.text("SOUR").simplified();
    if (const GedcomNode* places = head.child("PLAC")) told.form = places->text("FORM").simplified();
    return told;
}

void GedcomReader::Records::lookAtCuts()
{
    GedcomCuts cuts;
    GedcomProblems passedOver;
    GedcomLine line;
    source_.restart();
    for (int i = 0; i < linesLookedAt && !cuts.areEnough() && source_.next(line, passedOver); ++i)
        cuts.take(structureLine(line));
    addBlanks_ = cuts.loseBlanks();
    if (addBlanks_)
        problems_.tell(
            GedcomDoubt::Continuation, cuts.firstLine(),
            "Os textos longos foram cortados entre palavras sem guardar o espaço: em cada CONC foi posto um.");
}

bool GedcomReader::Records::next(GedcomNode& record)
{
    if (ended_) return false;
    ended_ = true; // also where the rest can't be read
    while (readRecord(record)) {
        if (record.tag == "TRLR") {
            tellOfRest();
            return false;
        }
        if (record.tag != "HEAD") {
            ended_ = false;
            return true;
        }
        problems_.tell(GedcomDoubt::Structure, record.line, "Há outro HEAD a meio do ficheiro, que não foi lido.");
    }
    problems_.tell(GedcomDoubt::End, lastLine_,
                   source_.isWhole() ? "Falta TRLR no fim do ficheiro, que pode estar incompleto."
                                     : "O ficheiro acaba a meio de uma linha e sem TRLR: está incompleto.");
    return false;
}

// What stands behind TRLR is no part of the file.
void GedcomReader::Records::tellOfRest()
{
    if (!isWaiting_ && !nextLine(waiting_)) return;
    problems_.tell(GedcomDoubt::End, waiting_.number, "Depois de TRLR há mais linhas, que não foram lidas.");
}

bool GedcomReader::Records::readRecord(GedcomNode& record)
{
    if (!isWaiting_ && !nextLine(waiting_)) return false;
    isWaiting_ = false;
    begin(record, waiting_);
    GedcomStructureLine line;
    while (nextLine(line)) {
        if (line.startsRecord()) {
            waiting_ = std::move(line);
            isWaiting_ = true;
            break;
        }
        take(line);
    }
    while (!open_.empty()) {
        close(open_.back());
        open_.pop_back();
    }
    return true;
}

void GedcomReader::Records::begin(GedcomNode& record, GedcomStructureLine& line)
{
    lines_ = 0;
    letters_ = 0;
    record = {};
    open_.clear();
    countIn(line);
    record = nodeOf(line, is70_);
    open_.push_back({&record, 0});
}

void GedcomReader::Records::countIn(const GedcomStructureLine& line)
{
    letters_ += line.value.size() + line.xref.size() + line.tag.size();
    lines_ += 1 + blankLines_;
    if (letters_ > mostLetters || lines_ > mostLines)
        refuseGedcom(line.number, "o registo é demasiado grande para um ficheiro GEDCOM.");
}

void GedcomReader::Records::take(GedcomStructureLine& line)
{
    countIn(line);
    if (line.isTextBelow(open_.back().level)) {
        problems_.tell(GedcomDoubt::Broken, line.number,
                       "A linha não tem nível e etiqueta: foi lida como continuação da anterior.");
        append(open_.back(), line.asText(blankLines_), true);
    } else if (line.tag == "CONC" || line.tag == "CONT")
        carryOn(line);
    else
        open(line);
}

void GedcomReader::Records::open(GedcomStructureLine& line)
{
    while (open_.size() > 1 && open_.back().level >= line.level) {
        close(open_.back());
        open_.pop_back();
    }
    if (line.level > open_.back().level + 1)
        problems_.tell(GedcomDoubt::Level, line.number,
                       QString("O nível %1 salta um nível: a linha foi lida abaixo da anterior.").arg(line.level));
    std::vector<GedcomNode>& beside = open_.back().node->children;
    beside.push_back(nodeOf(line, is70_));
    open_.push_back({&beside.back(), line.level});
}

// What its level leads to: the structure right above, or one further up that has a text. Otherwise its level is wrong
// (some programs give it that of what it continues), and the one right above is meant.
GedcomReader::Records::Open& GedcomReader::Records::continuedBy(const GedcomStructureLine& line)
{
    for (Open& each : open_) {
        if (each.level + 1 != line.level) continue;
        const bool isLast = &each == &open_.back();
        if (isLast || (!each.node->value.isEmpty() && !each.node->isPointer)) return each;
    }
    return open_.back();
}

void GedcomReader::Records::carryOn(const GedcomStructureLine& line)
{
    Open& continued = continuedBy(line);
    if (&continued != &open_.back() || continued.level + 1 != line.level)
        problems_.tell(GedcomDoubt::Continuation, line.number,
                       QString("%1 não está logo abaixo do que continua.").arg(line.tag));
    append(continued, line, line.tag == "CONT");
}

void GedcomReader::Records::append(Open& continued, const GedcomStructureLine& line, bool onNewLine)
{
    GedcomNode& node = *continued.node;
    node.isPointer = false;
    if (onNewLine)
        node.value += u'\n';
    else if (addBlanks_)
        node.value += u' ';
    continued.pieces.push_back({node.value.size(), line.number});
    node.value += onNewLine && is70_ ? withoutFirstAt(line.value) : line.value;
}

void GedcomReader::Records::close(const Open& ended)
{
    GedcomNode& node = *ended.node;
    if (isRaw_) return;
    makeReadable(node.xref, node.line, {});
    makeReadable(node.value, node.line, ended.pieces);
    if (node.isPointer)
        node.value = node.value.trimmed().sliced(1).chopped(1);
    else if (!is70_ && node.value.contains(u'@'))
        node.value.replace("@@", "@");
}

void GedcomReader::Records::makeReadable(QString& letters, int firstLine, const std::vector<Piece>& further)
{
    if (std::none_of(letters.cbegin(), letters.cend(), isForeign)) return;
    const QString raw = std::exchange(letters, {});
    const GedcomText read = source_.is8Bit() ? decoded(raw.toLatin1(), encoding_) : checked(raw);
    letters = read.text;
    int told = 0;
    for (const qsizetype at : read.guessed) {
        const auto behind = std::upper_bound(further.begin(), further.end(), at,
                                             [](qsizetype place, const Piece& piece) { return place < piece.from; });
        const int line = behind == further.begin() ? firstLine : std::prev(behind)->line;
        if (line == told) continue;
        told = line;
        problems_.tell(GedcomDoubt::Letter, line,
                       QString("Há caracteres que não são da codificação do ficheiro (o primeiro é %1): foram lidos "
                               "pelo que parecem ser.")
                           .arg(hexOf(raw[at])));
    }
}

GedcomReader::GedcomReader(QIODevice& device) : records_(std::make_unique<Records>(device))
{
    head_ = records_->readHead();
}

GedcomReader::~GedcomReader() = default;

const GedcomHead& GedcomReader::head() const
{
    return head_;
}

bool GedcomReader::next(GedcomNode& record)
{
    return records_->next(record);
}

const std::vector<GedcomProblem>& GedcomReader::problems() const
{
    return records_->problems().all();
}

double GedcomReader::done() const
{
    return records_->done();
}

} // namespace study::exchange
