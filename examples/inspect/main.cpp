// Finds the parts in a picture: a flow of small tools that hand each other variants.

#include <QtCore/qcommandlineparser.h>
#include <QtCore/qcoreapplication.h>
#include <QtCore/qfileinfo.h>
#include <iostream>
#include <opencv2/core.hpp>

#include "report.h"
#include "tools.h"

namespace {

struct Arguments
{
    bool help;
    QString text; // what --help prints
    QString image;
    QString out;
};

Arguments argumentsOf(QStringList const& words)
{
    QCommandLineParser parser;
    parser.setApplicationDescription("Finds the parts in a picture and draws their outlines.");
    QCommandLineOption const help = parser.addHelpOption();
    QCommandLineOption const out("out", "Write the drawing to FILE (default: IMAGE-found.png).",
                                 "FILE");
    parser.addOption(out);
    parser.addPositionalArgument("IMAGE", "The picture to inspect.");

    // parse() leaves it to us what to say and how to end.
    bool const good = parser.parse(words);
    if (parser.isSet(help))
        return {true, parser.helpText(), {}, {}};
    QString const usage = "usage: inspect IMAGE [--out FILE]";
    if (!good)
        throw inspect::Failure((parser.errorText() + " " + usage).toStdString());
    if (parser.positionalArguments().size() != 1)
        throw inspect::Failure("name one picture; " + usage.toStdString());
    QString const image = parser.positionalArguments().constFirst();
    QString const found = QFileInfo(image).completeBaseName() + "-found.png";
    return {false, {}, image, parser.isSet(out) ? parser.value(out) : found};
}

KDRString textOf(QString const& text) { return KDRString(text.utf16(), text.size()); }

void run(Arguments const& arguments)
{
    using namespace inspect;

    Values values;
    values["path"] = textOf(arguments.image);
    std::vector<Values> history;
    for (Tool const tool : {loadImage, flattenGround, proposeParameters, threshold, findParts,
                            measureParts, drawParts}) {
        values = tool(values);
        history.push_back(values);
    }

    KDRImage drawing = valueOf(values, "drawing", &KDRVariant::toImage);
    if (drawing.save(textOf(arguments.out)) == 0)
        throw Failure("cannot write '" + arguments.out.toStdString() +
                      "': no such directory, no permission, or not the name of a picture "
                      "(png, jpg, tif, bmp, ppm)");

    printParameters(std::cout, values);
    printParts(std::cout, values);
    printSharing(std::cout, history);

    int const found = valueOf(values, "outlines", &KDRVariant::toContourArray).length();
    int const cut = valueOf(values, "cut", &KDRVariant::toNumber).toInt();
    std::cout << "\nFound " << found << (found == 1 ? " part" : " parts") << " in "
              << arguments.image.toStdString() << " (" << drawing.width() << " x "
              << drawing.height() << " pixels)";
    if (cut > 0)
        std::cout << ", and " << cut << " cut by its edge";
    std::cout << ".\nThe picture with their outlines: "
              << QFileInfo(arguments.out).absoluteFilePath().toStdString() << '\n'
              << std::flush;
    if (!std::cout)
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
        Arguments const arguments = argumentsOf(QCoreApplication::arguments());
        if (arguments.help)
            std::cout << arguments.text.toStdString();
        else
            run(arguments);
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
