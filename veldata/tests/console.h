#ifndef VELDATA_TESTS_CONSOLE_H
#define VELDATA_TESTS_CONSOLE_H

#include <cstdio>
#include <iostream>
#include <string>

#include <unistd.h>

/// Catches what reaches the process's standard output and error while it lives, whoever writes it.
class Console
{
public:
    Console() : file(std::tmpfile())
    {
        flush();
        for (int i = 0; i < 2; ++i) {
            saved[i] = ::dup(i + 1);
            ::dup2(::fileno(file), i + 1);
        }
    }

    Console(Console const&) = delete;
    Console& operator=(Console const&) = delete;

    ~Console()
    {
        restore();
        std::fclose(file);
    }

    /// Ends the catching and answers what was caught.
    std::string caught()
    {
        restore();
        std::string text;
        std::rewind(file);
        for (int byte = std::fgetc(file); byte != EOF; byte = std::fgetc(file))
            text += static_cast<char>(byte);
        return text;
    }

private:
    static void flush()
    {
        std::cout.flush();
        std::cerr.flush();
        std::fflush(nullptr);
    }

    void restore()
    {
        flush();
        for (int i = 0; i < 2; ++i) {
            if (saved[i] < 0)
                continue;
            ::dup2(saved[i], i + 1);
            ::close(saved[i]);
            saved[i] = -1;
        }
    }

    std::FILE* file;
    int saved[2];
};

#endif
