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
#include "page/page.h"
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
    bool json = false;
    std::optional<QString> images;
    std::optional<QString> html;
    QString path;
};

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
    Arguments arguments;
    if (parser.isSet(help))
        arguments.answer = parser.helpText();
    else if (parser.isSet(version))
        arguments.answer = "kdrdump " + QCoreApplication::applicationVersion() + '\n';
    if (!arguments.answer.isEmpty())
        return arguments;
    QString const usage =
        "usage: kdrdump FILE [--json] [--images DIR] [--html OUT] [--select PATH]";
    if (!good)
        throw Failure((parser.errorText() + "; " + usage).toStdString());
    if (parser.positionalArguments().size() != 1)
        throw Failure("name one file; " + usage.toStdString());
    arguments.file = parser.positionalArguments().constFirst();
    arguments.json = parser.isSet(json);
    arguments.path = parser.value(select);
    if (parser.isSet(images))
        arguments.images = parser.value(images);
    if (parser.isSet(html))
        arguments.html = parser.value(html);
    if (arguments.html && QFileInfo::exists(*arguments.html) &&
        QFileInfo(*arguments.html) == QFileInfo(arguments.file))
        throw Failure("the page would overwrite the value '" + arguments.file.toStdString() + "'");
    return arguments;
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

void showValue(Arguments const& arguments, Piece const& piece)
{
    // The page is opened first: where it cannot be written, there are no pictures either.
    std::optional<page::PageFile> file;
    if (arguments.html)
        file.emplace(*arguments.html);
    if (arguments.images)
        for (QString const& name :
             writePictures(picturesIn(piece.value, piece.path), *arguments.images))
            std::cout << name.toStdString() << '\n';
    if (arguments.html) {
        file->write(
            pageOf(piece.value, piece.path, QFileInfo(arguments.file).fileName().toStdString()));
        std::cout << arguments.html->toStdString() << '\n';
    }
    if (arguments.json)
        std::cout << kdrio::toJson(piece.value).toUtf8().constData();
    else if (!arguments.images && !arguments.html)
        page::printTree(std::cout, piece.value, true, piece.path);
}

void run(Arguments const& arguments)
{
    if (!arguments.answer.isEmpty()) {
        std::cout << arguments.answer.toStdString();
    } else {
        Piece const piece = pieceAt(valueIn(arguments.file), arguments.path);
        piece.isValue ? showValue(arguments, piece) : showField(arguments, piece);
    }
    if (!std::cout.flush())
        throw Failure("cannot write to standard output");
}

// In one line, whatever the names in it are.
void tell(std::string text)
{
    for (char& each : text)
        if (static_cast<unsigned char>(each) < 0x20 || each == 0x7F)
            each = '?';
    std::cerr << "kdrdump: " << text << '\n';
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
