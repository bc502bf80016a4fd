// Finds the parts in a picture, or measures a part that it draws itself: flows of small tools that
// hand each other variants.

#include <QtCore/qcommandlineparser.h>
#include <QtCore/qcoreapplication.h>
#include <QtCore/qfileinfo.h>
#include <iostream>
#include <opencv2/core.hpp>
#include <optional>

#include <kdrio/kdrio.h>

#include "drawnpart.h"
#include "htmlreport.h"
#include "page/files.h"
#include "progress.h"
#include "recipe.h"
#include "report.h"
#include "tools.h"

namespace {

using namespace inspect;

struct Arguments
{
    bool help = false;
    bool drawnPart = false;
    QString text; // what --help prints
    QString image;
    QString out;
    std::optional<QString> report;
    std::optional<QString> value;
};

// Nothing that is not asked for overwrites anything.
void mustDiffer(char const* what, std::optional<QString> const& path, char const* other,
                QString const& otherPath)
{
    if (path && !otherPath.isEmpty())
        page::mustDiffer(what, *path, other, otherPath);
}

Arguments argumentsOf(QStringList const& words)
{
    QCommandLineParser parser;
    parser.setApplicationDescription("Finds the parts in a picture and draws figures around them.");
    QCommandLineOption const help = parser.addHelpOption();
    QCommandLineOption const out(
        "out", "Write the drawing to FILE (default: IMAGE-found.png, part-found.png).", "FILE");
    QCommandLineOption const report(
        "report", "Write a page for the browser, with picture, figures and numbers, to FILE.",
        "FILE");
    QCommandLineOption const value(
        "save", "Save the picture and the recipe as one value, for kdrdump and others, to FILE.",
        "FILE");
    QCommandLineOption const drawnPart(
        "drawn-part", "Instead of inspecting a picture, draw a machine part and measure it.");
    parser.addOptions({out, report, value, drawnPart});
    parser.addPositionalArgument("IMAGE", "The picture to inspect.");

    // parse() leaves it to us what to say and how to end.
    bool const good = parser.parse(words);
    Arguments arguments;
    arguments.help = parser.isSet(help);
    arguments.text = parser.helpText();
    if (arguments.help)
        return arguments;
    QString const usage = "usage: inspect IMAGE [--out FILE] [--report FILE] [--save FILE], or "
                          "inspect --drawn-part [--out FILE] [--report FILE] [--save FILE]";
    if (!good)
        throw Failure((parser.errorText() + " " + usage).toStdString());
    arguments.drawnPart = parser.isSet(drawnPart);
    if (parser.positionalArguments().size() != (arguments.drawnPart ? 0 : 1))
        throw Failure(
            (arguments.drawnPart ? "name no picture for the drawn part; " : "name one picture; ") +
            usage.toStdString());
    QString name = "part";
    if (!arguments.drawnPart) {
        arguments.image = parser.positionalArguments().constFirst();
        name = QFileInfo(arguments.image).completeBaseName();
    }
    arguments.out = parser.isSet(out) ? parser.value(out) : name + "-found.png";
    if (parser.isSet(report))
        arguments.report = parser.value(report);
    if (parser.isSet(value))
        arguments.value = parser.value(value);
    for (QString const& picture : {arguments.image, arguments.out}) {
        mustDiffer("report", arguments.report, "picture", picture);
        mustDiffer("saved value", arguments.value, "picture", picture);
    }
    if (arguments.report)
        mustDiffer("saved value", arguments.value, "report", *arguments.report);
    return arguments;
}

KDRString textOf(QString const& text) { return KDRString(text.utf16(), text.size()); }

struct Step
{
    char const* name; // what it does
    Tool tool;
};

// The values after each step.
std::vector<Values> valuesAfter(std::vector<Step> const& steps, Values values)
{
    Progress progress(steps.size());
    std::vector<Values> history;
    for (Step const& step : steps) {
        progress.next(step.name);
        values = step.tool(values);
        history.push_back(values);
    }
    return history;
}

void save(Values const& values, QString const& path)
{
    if (valueOf(values, "drawing", &KDRVariant::toImage).save(textOf(path)) == 0)
        throw Failure("cannot write '" + path.toStdString() +
                      "': no such directory, no permission, or not the name of a picture "
                      "(png, jpg, tif, bmp, ppm)");
}

// The recipe as saved bytes, with the picture before what was found in it.
std::string savedValue(Values const& values)
{
    KDRVariantArray whole;
    add(whole, "image", values.at("image"));
    whole.push_back(valueOf(values, "recipe", &KDRVariant::toVariantArray));
    KDRBuffer bytes;
    kdrio::Error error;
    if (!kdrio::toBytes(KDRVariant(whole), &bytes, &error))
        throw Failure(error.line().toUtf8().constData());
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

// Writes the picture, and the report and the value where they are asked for. It opens those first:
// where one cannot be written, there is no picture either.
void write(Arguments const& arguments, std::vector<Values> const& history,
           std::string (*reportOf)(std::vector<Values> const&))
{
    std::optional<page::PageFile> reportFile;
    std::optional<page::PageFile> valueFile;
    std::string report;
    std::string value;
    if (arguments.report) {
        reportFile.emplace(*arguments.report);
        report = reportOf(history);
    }
    if (arguments.value) {
        valueFile.emplace(*arguments.value);
        value = savedValue(history.back());
    }
    save(history.back(), arguments.out);
    if (reportFile)
        reportFile->write(report);
    if (valueFile)
        valueFile->write(value);
}

void tellFiles(char const* picture, Arguments const& arguments)
{
    std::cout << picture << ": " << QFileInfo(arguments.out).absoluteFilePath().toStdString()
              << '\n';
    if (arguments.report)
        std::cout << "The report, for the browser: "
                  << QFileInfo(*arguments.report).absoluteFilePath().toStdString() << '\n';
    if (arguments.value)
        std::cout << "The saved value, for kdrdump: "
                  << QFileInfo(*arguments.value).absoluteFilePath().toStdString() << '\n';
}

void inspectPicture(Arguments const& arguments)
{
    Values given;
    given["path"] = textOf(arguments.image);
    std::vector<Values> const history = valuesAfter({{"reading the picture", loadImage},
                                                     {"taking the ground away", flattenGround},
                                                     {"proposing parameters", proposeParameters},
                                                     {"telling parts from ground", threshold},
                                                     {"finding parts", findParts},
                                                     {"fitting figures", fitFigures},
                                                     {"measuring", measureParts},
                                                     {"converting figures", convertFigures},
                                                     {"drawing", drawParts},
                                                     {"packing", packParts}},
                                                    given);
    Values const& values = history.back();
    write(arguments, history, partsReport);

    printParts(std::cout, values);
    printConversions(std::cout, values);
    printSharing(std::cout, history);
    KDRVariant const copy = values.at("recipe");
    printRecipe(std::cout, copy);

    KDRImage const image = valueOf(values, "image", &KDRVariant::toImage);
    int const found = valueOf(values, "outlines", &KDRVariant::toContourArray).length();
    int const cut = valueOf(values, "cut", &KDRVariant::toNumber).toInt();
    std::cout << "\nFound " << found << (found == 1 ? " part" : " parts") << " in "
              << arguments.image.toStdString() << " (" << image.width() << " x " << image.height()
              << " pixels)";
    if (cut > 0)
        std::cout << ", and " << cut << " cut by its edge";
    std::cout << ".\n";
    tellFiles("The picture with borders (green), circles (red) and rectangles (blue)", arguments);
}

void inspectDrawnPart(Arguments const& arguments)
{
    std::vector<Values> const history = valuesAfter({{"planning the part", planPart},
                                                     {"drawing it", drawPart},
                                                     {"following edges", followEdges},
                                                     {"measuring", measurePart},
                                                     {"drawing figures", drawFigures},
                                                     {"packing", packPart}},
                                                    {});
    Values const& values = history.back();
    write(arguments, history, drawnPartReport);

    printFigures(std::cout, values);
    KDRVariant const copy = values.at("recipe");
    printRecipe(std::cout, copy);

    KDRBoolArray const isFound = valueOf(values, "is found", &KDRVariant::toBoolArray);
    int found = 0;
    for (int i = 0; i < isFound.length(); ++i)
        found += isFound[i] ? 1 : 0;
    std::cout << "\nFound " << found << " of " << isFound.length()
              << " figures of the drawn part.\n";
    tellFiles("The picture with the figures found", arguments);
}

void run(Arguments const& arguments)
{
    if (arguments.help)
        std::cout << arguments.text.toStdString();
    else if (arguments.drawnPart)
        inspectDrawnPart(arguments);
    else
        inspectPicture(arguments);
    if (!std::cout.flush())
        throw Failure("cannot write the report to standard output");
}

// Failures are told once, here, not by the image processing library as well.
int tellNothing(int, char const*, char const*, char const*, int, void*) { return 0; }

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication const application(argc, argv);
    cv::redirectError(tellNothing);
    try {
        run(argumentsOf(QCoreApplication::arguments()));
        return 0;
    } catch (inspect::Failure const& failure) {
        std::cerr << "inspect: " << failure.what() << '\n';
    } catch (cv::Exception const& failure) {
        std::cerr << "inspect: image processing failed: " << failure.err << '\n';
    } catch (std::bad_alloc const&) {
        std::cerr << "inspect: out of memory\n";
    }
    return 2;
}
