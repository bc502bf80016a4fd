// Shows a saved value: as a tree, as JSON, as pictures and as a page for the browser.

#include <QtCore/qcommandlineparser.h>
#include <QtCore/qcoreapplication.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qjsonarray.h>
#include <QtCore/qjsondocument.h>
#include <QtCore/qjsonobject.h>
#include <iostream>
#include <optional>

#include <kdrio/kdrio.h>

#include "images.h"
#include "page/failure.h"
#include "page/files.h"
#include "page/tree.h"
#include "select.h"
#include "valuepage.h"

namespace {

using namespace kdrdump;
using page::Failure;

struct Arguments
{
    QString answer; // what --help and --version print
    QString file;
    bool json;
    std::optional<QString> images;
    std::optional<QString> html;
    QString path;
};

char const* const usage =
    "usage: kdrdump FILE [--json] [--images DIR] [--html OUT] [--select PATH]";

std::optional<QString> optional(QCommandLineParser const& parser, QCommandLineOption const& option)
{
    return parser.isSet(option) ? std::optional(parser.value(option)) : std::nullopt;
}

Arguments argumentsOf(QStringList const& words)
{
    QCommandLineParser parser;
    parser.setApplicationDescription("Shows a saved value.");
    QCommandLineOption const help = parser.addHelpOption();
    QCommandLineOption const version = parser.addVersionOption();
    QCommandLineOption const json("json", "Print the value as JSON.");
    QCommandLineOption const images("images", "Write the pictures of the value into DIR.", "DIR");
    QCommandLineOption const html("html", "Write a page for the browser to OUT.", "OUT");
    QCommandLineOption const select("select", "Show the piece at PATH alone, such as [3][1].",
                                    "PATH");
    parser.addOptions({json, images, html, select});
    parser.addPositionalArgument("FILE", "The file with the saved value.");

    // parse() leaves it to us what to say and how to end.
    bool const good = parser.parse(words);
    QStringList const files = parser.positionalArguments();
    if (parser.isSet(help))
        return {parser.helpText(), "", false, {}, {}, ""};
    if (parser.isSet(version))
        return {"kdrdump " + QCoreApplication::applicationVersion() + '\n', "", false, {}, {}, ""};
    if (!good)
        throw Failure(parser.errorText().toStdString() + "; " + usage);
    if (files.size() != 1)
        throw Failure(std::string("name one file; ") + usage);
    return {"",
            files.constFirst(),
            parser.isSet(json),
            optional(parser, images),
            optional(parser, html),
            parser.value(select)};
}

KDRVariant valueIn(QString const& path)
{
    KDRVariant value;
    kdrio::Error error;
    if (!kdrio::load(KDRString(path.utf16(), path.size()), &value, &error))
        throw Failure(error.line().toUtf8().constData());
    return value;
}

std::string textOf(QJsonValue const& field)
{
    if (field.isArray())
        return QJsonDocument(field.toArray()).toJson().toStdString();
    if (field.isObject())
        return QJsonDocument(field.toObject()).toJson().toStdString();
    std::string const text =
        QJsonDocument(QJsonArray{field}).toJson(QJsonDocument::Compact).toStdString();
    return text.substr(1, text.size() - 2) + '\n';
}

void showField(Arguments const& arguments, Piece const& piece)
{
    if (arguments.images || arguments.html)
        throw Failure("there is no picture and no page of '" + piece.path +
                      "', which is a field of a value; it can be printed");
    std::cout << textOf(piece.field);
}

// Where one of them would overwrite the value or another, there is none of them.
void writeFiles(Arguments const& arguments, Piece const& piece)
{
    std::vector<page::Entry> const entries = page::entriesOf(piece.value, piece.path);
    std::vector<Picture> const pictures = picturesIn(entries);
    std::vector<PictureFile> files;
    if (arguments.images)
        files = filesOf(pictures, *arguments.images);
    for (PictureFile const& file : files)
        page::mustDiffer("picture", file.path, "value", arguments.file);
    std::optional<page::PageFile> page;
    if (arguments.html) {
        page::mustDiffer("page", *arguments.html, "value", arguments.file);
        for (PictureFile const& file : files)
            page::mustDiffer("page", *arguments.html, "picture", file.path);
        // Opened first: where it cannot be written, there are no pictures either.
        page.emplace(*arguments.html);
    }
    for (PictureFile const& file : files) {
        write(file);
        std::cout << file.path.toStdString() << '\n';
    }
    if (page) {
        QString const title = QFileInfo(arguments.file).fileName();
        page->write(pageOf(entries, pictures, piece.path, title.toStdString()));
        std::cout << arguments.html->toStdString() << '\n';
    }
}

void showValue(Arguments const& arguments, Piece const& piece)
{
    bool const isWritten = arguments.images || arguments.html;
    if (isWritten)
        writeFiles(arguments, piece);
    if (arguments.json)
        std::cout << kdrio::toJson(piece.value).toUtf8().constData();
    else if (!isWritten)
        page::printTree(std::cout, page::entriesOf(piece.value, piece.path), true);
}

void run(Arguments const& arguments)
{
    if (!arguments.answer.isEmpty()) {
        std::cout << arguments.answer.toStdString();
    } else {
        Piece const piece = pieceAt(valueIn(arguments.file), arguments.path);
        if (piece.isValue)
            showValue(arguments, piece);
        else
            showField(arguments, piece);
    }
    if (!std::cout.flush())
        throw Failure("cannot write to standard output");
}

// Whether a terminal writes it down as it is.
bool isWritten(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return true;
    }
}

// In one line, whatever the names in it are.
void tell(char const* words)
{
    QString text = QString::fromUtf8(words);
    for (QChar& each : text)
        if (!isWritten(each))
            each = '?';
    std::cerr << "kdrdump: " << text.toStdString() << '\n';
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication const application(argc, argv);
    QCoreApplication::setApplicationVersion(KDRDUMP_VERSION);
    try {
        run(argumentsOf(QCoreApplication::arguments()));
        return 0;
    } catch (page::Failure const& failure) {
        tell(failure.what());
    } catch (std::bad_alloc const&) {
        tell("out of memory");
    }
    return 2;
}
