#ifndef KDRIO_FAILURE_P_H
#define KDRIO_FAILURE_P_H

#include <QtCore/qstring.h>

#include <vector>

namespace kdrio {

/// Thrown by writers and readers, and caught where the library is entered.
struct Failure
{
    QString what;
    QString path;
    long long offset;
};

/// Where in a value a writer or a reader is.
class Path
{
public:
    /// One step down, until the end of the scope.
    class Step
    {
    public:
        Step(Path& path, char const* name) : m_path(path) { path.m_steps.push_back({name, 0}); }
        Step(Path& path, int index) : m_path(path) { path.m_steps.push_back({nullptr, index}); }
        ~Step() { m_path.m_steps.pop_back(); }
        Step(Step const&) = delete;
        Step& operator=(Step const&) = delete;

        /// The next element of a list.
        void next() { ++m_path.m_steps.back().index; }

    private:
        Path& m_path;
    };

    QString text() const
    {
        QString text;
        for (Part const& part : m_steps) {
            if (part.name)
                text +=
                    (text.isEmpty() ? QString() : QStringLiteral(".")) + QLatin1String(part.name);
            else
                text += QLatin1Char('[') + QString::number(part.index) + QLatin1Char(']');
        }
        return text;
    }

private:
    struct Part
    {
        char const* name;
        int index;
    };

    std::vector<Part> m_steps;
};

/// Variants inside of variants, whatever a caller's limits say: each takes a piece of the stack.
constexpr int deepestNesting = 512;

} // namespace kdrio

#endif
