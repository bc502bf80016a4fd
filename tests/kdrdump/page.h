#ifndef KDRDATA_TESTS_KDRDUMP_PAGE_H
#define KDRDATA_TESTS_KDRDUMP_PAGE_H

#include "../support/pageelements.h"
#include "run.h"

#include <cstring>

/// An empty directory to make pages in.
class Page : public Dump
{
protected:
    // The elements of the page of `value`, in the order of their starts.
    std::vector<Element> pageOf(KDRVariant const& value, QStringList const& more = {}) const
    {
        save(value);
        EXPECT_EQ(printed(QStringList({"value.kdr", "--html", "page.html"}) + more), "page.html\n");
        return elementsOf(read("page.html"));
    }

    static std::vector<Element> named(std::vector<Element> const& all, char const* name,
                                      char const* attribute = nullptr)
    {
        std::vector<Element> found;
        for (Element const& each : all)
            if (each.name == name && (!attribute || each.has(attribute)))
                found.push_back(each);
        return found;
    }

    static QStringList texts(std::vector<Element> const& elements)
    {
        QStringList all;
        for (Element const& each : elements)
            all << each.text.simplified();
        return all;
    }

    // The kinds of the figures in each picture.
    static QStringList figuresIn(std::vector<Element> const& page)
    {
        QStringList kinds;
        for (Element const& each : page) {
            if (each.name == "svg" && each.of("class") == "picture")
                kinds << "";
            if (each.attributes.contains("data-kind"))
                kinds.last() += (kinds.last().isEmpty() ? "" : " ") + each.of("data-kind");
        }
        return kinds;
    }

    // The greys in which a row of pixels is shown.
    std::vector<int> greysOf(std::vector<double> const& pixels) const
    {
        KDRImage deep(nullptr, static_cast<int>(pixels.size()), 1, 1, 0, KDRImage::DataTypeFloat64);
        std::memcpy(deep.dataPtr(), pixels.data(), pixels.size() * sizeof(double));
        QString const start = "data:image/png;base64,";
        QString const address = named(pageOf(KDRVariant(deep)), "image").at(0).of("href");
        EXPECT_TRUE(address.startsWith(start));
        QFile png(file("held.png"));
        EXPECT_TRUE(png.open(QIODevice::WriteOnly));
        png.write(QByteArray::fromBase64(address.mid(start.size()).toLatin1()));
        png.close();
        KDRImage held;
        QByteArray const path = file("held.png").toUtf8();
        EXPECT_NE(held.read(KDRString().fromUtf8(path.constData())), 0);
        EXPECT_EQ(held.depth(), KDRImage::DataTypeUInt8);
        return std::vector<int>(held.dataPtr(), held.dataPtr() + held.width());
    }

    static KDRImage image(int width = 40)
    {
        return KDRImage(nullptr, width, 30, 1, 0, KDRImage::DataTypeUInt8);
    }
};

#endif
