// A tool that does what its arguments say, one after the other; tests stand it in for real tools.
//   out TEXT | err TEXT      writes the text at once, as one piece
//   hex DIGITS               writes the bytes
//   flood BYTES              writes that many bytes
//   wait-file PATH           waits until the path exists; ends with 1 where its folder goes, as a killed test leaves it
//   touch PATH               makes an empty file
//   copy FROM TO             copies a file, as an encoder writes its output
//   remove PATH              removes a file
//   size PATH                prints how many bytes the file has, or "none"
//   env NAME | cwd | stdin | descriptors | signals   prints what the tool finds of it
//   child ARGUMENTS...       forks a copy with the rest of the arguments that outlives this one
//   become PROGRAM ARGUMENTS...   runs that with the rest of the arguments in its own place
//   exit STATUS | kill SIGNAL
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

namespace {

void put(int descriptor, const std::string& text)
{
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t count = ::write(descriptor, text.data() + done, text.size() - done);
        if (count <= 0) _exit(99);
        done += std::size_t(count);
    }
}

std::string bytesOf(const std::string& digits)
{
    std::string bytes;
    for (std::size_t at = 0; at + 1 < digits.size(); at += 2)
        bytes += char(std::stoi(digits.substr(at, 2), nullptr, 16));
    return bytes;
}

std::string contentOf(const std::string& path)
{
    std::string bytes;
    char block[4096];
    const int file = ::open(path.c_str(), O_RDONLY);
    if (file < 0) _exit(97);
    for (ssize_t count = 0; (count = ::read(file, block, sizeof block)) > 0;)
        bytes.append(block, std::size_t(count));
    ::close(file);
    return bytes;
}

void copyFile(const std::string& from, const std::string& to)
{
    const int file = ::open(to.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0644);
    put(file, contentOf(from));
    ::close(file);
}

void printSize(const std::string& path)
{
    put(STDOUT_FILENO, ::access(path.c_str(), R_OK) == 0 ? std::to_string(contentOf(path).size()) : "none");
}

void printDescriptors()
{
    std::string numbers;
    DIR* const directory = ::opendir("/proc/self/fd");
    while (const dirent* entry = ::readdir(directory)) {
        if (entry->d_name[0] != '.' && std::atoi(entry->d_name) != ::dirfd(directory))
            numbers += std::string(entry->d_name) + ' ';
    }
    ::closedir(directory);
    put(STDOUT_FILENO, numbers);
}

void printSignals()
{
    sigset_t mask;
    sigprocmask(SIG_BLOCK, nullptr, &mask);
    struct sigaction pipe;
    sigaction(SIGPIPE, nullptr, &pipe);
    put(STDOUT_FILENO, std::string(sigismember(&mask, SIGTERM) ? "blocked" : "open") +
                           (pipe.sa_handler == SIG_DFL ? " default" : " changed"));
}

void printWorkingDirectory()
{
    char path[4096];
    put(STDOUT_FILENO, ::getcwd(path, sizeof path) ? path : "none");
}

void printStandardInput()
{
    char byte;
    put(STDOUT_FILENO, ::read(STDIN_FILENO, &byte, 1) == 0 ? "empty" : "open");
}

void waitForFile(const std::string& path)
{
    constexpr unsigned int longerThanAnyTest = 600; // seconds; then the test was killed and this is left alone
    ::alarm(longerThanAnyTest);
    const std::string folder = path.substr(0, path.rfind('/') + 1) + ".";
    while (::access(path.c_str(), F_OK) != 0) {
        if (::access(folder.c_str(), F_OK) != 0) ::_exit(1);
        ::usleep(2000);
    }
    ::alarm(0);
}

} // namespace

int main(int argc, char** argv)
{
    for (int at = 1; at < argc; ++at) {
        const std::string command = argv[at];
        const auto value = [&] { return std::string(at + 1 < argc ? argv[++at] : ""); };
        if (command == "out")
            put(STDOUT_FILENO, value());
        else if (command == "err")
            put(STDERR_FILENO, value());
        else if (command == "hex")
            put(STDOUT_FILENO, bytesOf(value()));
        else if (command == "flood")
            put(STDOUT_FILENO, std::string(std::stoul(value()), 'x'));
        else if (command == "wait-file")
            waitForFile(value());
        else if (command == "touch")
            ::close(::open(value().c_str(), O_CREAT | O_WRONLY, 0644));
        else if (command == "copy") {
            const std::string from = value();
            copyFile(from, value());
        } else if (command == "remove")
            ::unlink(value().c_str());
        else if (command == "size")
            printSize(value());
        else if (command == "env") {
            const char* found = std::getenv(value().c_str());
            put(STDOUT_FILENO, found ? found : "unset");
        } else if (command == "cwd")
            printWorkingDirectory();
        else if (command == "stdin")
            printStandardInput();
        else if (command == "descriptors")
            printDescriptors();
        else if (command == "signals")
            printSignals();
        else if (command == "child") {
            if (::fork() != 0) _exit(0);
        } else if (command == "become") {
            const std::string program = value();
            ::execv(program.c_str(), argv + at);
            _exit(96);
        } else if (command == "exit")
            _exit(std::stoi(value()));
        else if (command == "kill")
            ::raise(std::stoi(value()));
        else
            _exit(98);
    }
}
