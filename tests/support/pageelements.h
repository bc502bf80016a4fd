#ifndef KDRDATA_TESTS_PAGEELEMENTS_H
#define KDRDATA_TESTS_PAGEELEMENTS_H

// Pages for the browser, read as XML, the way a browser takes them apart.

#include <QtCore/qmap.h>
#include <QtCore/qstringlist.h>
#include <QtCore/qxmlstream.h>
#include <gtest/gtest.h>
#include <vector>

/// An element of a page.
struct Element
{
    QString name;
    QMap<QString, QString> attributes;
    QString text;         ///< with that of the elements in it
    QStringList around;   ///< the elements that it is in, the outermost first: `name.class`
    std::size_t end = 0U; ///< the place behind its last element

    bool has(char const* attribute) const { return attributes.contains(attribute); }
    QString of(char const* attribute) const { return attributes.value(attribute); }
    double number(char const* attribute) const { return of(attribute).toDouble(); }
};

/// The elements of a page, in the order of their starts; fails where it is no XML.
inline std::vector<Element> elementsOf(QByteArray const& page)
{
    QXmlStreamReader reader(page);
    std::vector<Element> elements;
    std::vector<std::size_t> open;
    QStringList around;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            Element element{reader.name().toString(), {}, "", around};
            for (QXmlStreamAttribute const& each : reader.attributes())
                element.attributes[each.name().toString()] = each.value().toString();
            around << element.name + '.' + element.of("class");
            open.push_back(elements.size());
            elements.push_back(element);
        } else if (reader.isEndElement()) {
            elements[open.back()].end = elements.size();
            around.removeLast();
            open.pop_back();
        } else if (reader.isCharacters()) {
            for (std::size_t const place : open)
                elements[place].text += reader.text();
        }
    }
    EXPECT_FALSE(reader.hasError())
        << reader.lineNumber() << ": " << reader.errorString().toStdString();
    return elements;
}

#endif
