// An engine for tests. It does what stands in the file beside the project, base + ".engine", one verb a line:
//   args                  writes its arguments to base + ".args", one a line, in UTF-8
//   commandline           writes the text that it was started with to base + ".commandline", in UTF-8 (Windows)
//   surroundings          writes to base + ".surroundings": its folder, its variable SBD_ENGINE_TEST, its error mode,
//                         each a line (Windows)
//   value KEYWORD TEXT    replaces the last word of the line that begins with KEYWORD in the project file
//   chk TEXT              appends a line to the report (base + "_計算結果" / name + ".CHK"); without TEXT: an empty file
//   result EXT COUNT      writes COUNT bytes as a result file of that extension
//   sleep MS
//   hold MS               leaves a child behind that holds the project file's lock
//   later MS VERB...      leaves a child behind that does the verb after that time, and holds nothing
//   term ignore|obey      what a request to end does to it, and to the children that it starts from here on (not Windows)
//   half MS               writes the first half of the project file, and the whole of it after that time
//   print COUNT           prints that many bytes, and as many as errors
//   flood COUNT FORM      replaces the report by COUNT bytes: "lines", "one-line", "blank-lines" or "control" bytes; the
//                         last line of the first three tells of an error
//   rubbish COUNT         replaces the project file by COUNT bytes that are no text
//   truncate COUNT        cuts the project file
//   delete                removes the project file
//   crash                 ends by a fault
//   exit CODE
// Without that file it does nothing. It knows neither Qt nor the libraries of this tree.
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace {

struct Job {
    std::vector<fs::path> arguments;
    fs::path project;
    fs::path base;
    fs::path results;
};

std::string Read(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void Write(const fs::path& path, const std::string& bytes, std::ios::openmode mode = std::ios::trunc)
{
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary | mode) << bytes;
}

fs::path WithExtension(const fs::path& base, const std::string& extension)
{
    fs::path path = base;
    path += extension;
    return path;
}

void SetValue(const Job& job, const std::string& keyword, const std::string& value)
{
    std::string bytes = Read(job.project);
    std::size_t begin = bytes.find("\n  " + keyword + ' ');
    if (begin == std::string::npos)
        std::exit(3);
    const std::size_t end = bytes.find_first_of("\r\n", begin + 1);
    begin = bytes.rfind(' ', end) + 1;
    bytes.replace(begin, end - begin, value);
    Write(job.project, bytes);
}

#ifdef _WIN32
constexpr const wchar_t* kSleep = L"--sleep"; // what the child of `hold` is started with
constexpr const wchar_t* kLater = L"--later"; // and that of `later`

std::string Utf8(const std::wstring& text)
{
    const std::u8string bytes = fs::path(text).u8string();
    return {bytes.begin(), bytes.end()};
}

std::vector<fs::path> Arguments(int, char**)
{
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    return {words + 1, words + count};
}

void WriteCommandLine(const Job& job)
{
    Write(WithExtension(job.base, ".commandline"), Utf8(GetCommandLineW()));
}

void WriteSurroundings(const Job& job)
{
    const wchar_t* const variable = _wgetenv(L"SBD_ENGINE_TEST");
    Write(WithExtension(job.base, ".surroundings"), Utf8(fs::current_path().wstring()) + '\n'
                                                        + Utf8(variable == nullptr ? L"" : variable) + '\n'
                                                        + std::to_string(GetErrorMode()) + '\n');
}

/// Starts this program once more; its words go by `line`. False if it does not start.
bool StartSelf(std::wstring line, bool inherit)
{
    wchar_t self[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    line = L"engine " + line;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION child{};
    return CreateProcessW(self, line.data(), nullptr, nullptr, inherit ? TRUE : FALSE, 0, nullptr, nullptr, &start,
                          &child)
           != 0;
}

/// The child gets the open file, and sleeps on it.
void Hold(const Job& job, int ms)
{
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    const HANDLE file = CreateFileW(job.project.c_str(), GENERIC_READ | GENERIC_WRITE, 0, &inheritable, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE || !StartSelf(kSleep + (L' ' + std::to_wstring(ms)), true))
        std::exit(4);
}

/// The verb stands in a file of its own, since a command line would have to be taken apart again.
void Later(const Job& job, int ms, const std::string& verb)
{
    Write(WithExtension(job.base, ".later"), verb);
    if (!StartSelf(kLater + (L' ' + std::to_wstring(ms)) + L" \"" + job.project.wstring() + L'"', false))
        std::exit(4);
}

void ObeyTerm(bool) {}

void Crash()
{
    RaiseException(EXCEPTION_ACCESS_VIOLATION, EXCEPTION_NONCONTINUABLE, 0, nullptr);
}
#else
std::vector<fs::path> Arguments(int argc, char** argv)
{
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

void Hold(const Job& job, int ms)
{
    const int file = open(job.project.c_str(), O_RDWR);
    if (file < 0 || flock(file, LOCK_EX | LOCK_NB) != 0)
        std::exit(4);
    if (fork() == 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(ms));
        _exit(0);
    }
}

void Do(const Job& job, std::istringstream& line);

void Later(const Job& job, int ms, const std::string& verb)
{
    if (fork() == 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(ms));
        std::istringstream words(verb);
        Do(job, words);
        _exit(0);
    }
}

void ObeyTerm(bool obey)
{
    std::signal(SIGTERM, obey ? SIG_DFL : SIG_IGN);
}

void Crash()
{
    std::signal(SIGSEGV, SIG_DFL);
    std::raise(SIGSEGV);
}
#endif

std::string Rubbish(std::size_t count)
{
    std::string bytes(count, '\0');
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = static_cast<char>(i * 7919 >> 3);
    return bytes;
}

void WriteHalf(const Job& job, int ms)
{
    const std::string bytes = Read(job.project);
    Write(job.project, bytes.substr(0, bytes.size() / 2));
    std::this_thread::sleep_for(std::chrono::milliseconds(ms));
    Write(job.project, bytes);
}

void Print(std::size_t count)
{
    const std::string line(999, 'x');
    for (std::size_t done = 0; done < count; done += line.size() + 1) {
        std::cout << line << '\n';
        std::cerr << line << '\n';
    }
}

void Flood(const Job& job, std::size_t count, const std::string& form)
{
    const fs::path path = WithExtension(job.results, ".CHK");
    Write(path, "");
    std::ofstream file(path, std::ios::binary);
    std::string piece = form == "blank-lines" ? std::string(1 << 16, '\n') : std::string(1 << 16, 'x');
    for (std::size_t i = 0; i < piece.size(); ++i) {
        if (form == "lines" && i % 80 == 79)
            piece[i] = '\n';
        if (form == "control")
            piece[i] = static_cast<char>(i % 32);
    }
    for (std::size_t done = 0; done < count; done += piece.size())
        file << piece;
    if (form != "control")
        file << "Error: the last line\r\n";
}

void Do(const Job& job, std::istringstream& line)
{
    std::string verb;
    line >> verb;
    if (verb == "args") {
        std::string text;
        for (const fs::path& argument : job.arguments) {
            const std::u8string bytes = argument.u8string();
            text.append(bytes.begin(), bytes.end()) += '\n';
        }
        Write(WithExtension(job.base, ".args"), text);
    } else if (verb == "value") {
        std::string keyword;
        std::string value;
        line >> keyword >> value;
        SetValue(job, keyword, value);
    } else if (verb == "chk") {
        std::string text;
        std::getline(line >> std::ws, text);
        Write(WithExtension(job.results, ".CHK"), text.empty() ? text : text + "\r\n", std::ios::app);
    } else if (verb == "result") {
        std::string extension;
        std::size_t count = 0;
        line >> extension >> count;
        Write(WithExtension(job.results, '.' + extension), std::string(count, '\0'));
    } else if (verb == "crash") {
        Crash();
    } else if (verb == "later") {
        int ms = 0;
        std::string rest;
        std::getline(line >> ms >> std::ws, rest);
        Later(job, ms, rest);
    } else if (verb == "term") {
        std::string word;
        line >> word;
        ObeyTerm(word == "obey");
    } else if (verb == "flood") {
        std::string form;
        std::size_t count = 0;
        line >> count >> form;
        Flood(job, count, form);
#ifdef _WIN32
    } else if (verb == "commandline") {
        WriteCommandLine(job);
    } else if (verb == "surroundings") {
        WriteSurroundings(job);
#endif
    } else if (verb == "delete") {
        fs::remove(job.project);
    } else {
        int number = 0;
        line >> number;
        if (verb == "sleep")
            std::this_thread::sleep_for(std::chrono::milliseconds(number));
        else if (verb == "hold")
            Hold(job, number);
        else if (verb == "rubbish")
            Write(job.project, Rubbish(static_cast<std::size_t>(number)));
        else if (verb == "truncate")
            fs::resize_file(job.project, static_cast<std::uintmax_t>(number));
        else if (verb == "half")
            WriteHalf(job, number);
        else if (verb == "print")
            Print(static_cast<std::size_t>(number));
        else if (verb == "exit")
            std::exit(number);
    }
}

} // namespace

int main(int argc, char** argv)
{
    Job job;
    job.arguments = Arguments(argc, argv);
    if (job.arguments.empty())
        return 2;
#ifdef _WIN32
    if (job.arguments.size() == 2 && job.arguments[0] == kSleep) {
        Sleep(static_cast<DWORD>(std::stoi(job.arguments[1].wstring())));
        return 0;
    }
    const bool isLater = job.arguments.size() == 3 && job.arguments[0] == kLater;
    if (isLater) {
        Sleep(static_cast<DWORD>(std::stoi(job.arguments[1].wstring())));
        job.arguments.erase(job.arguments.begin(), job.arguments.begin() + 2);
    }
#endif
    job.project = job.arguments.front();
    job.base = job.project;
    job.base.replace_extension();
    job.results = job.base;
    job.results += fs::path(u8"_計算結果");
    job.results /= job.base.filename();

#ifdef _WIN32
    std::ifstream verbs(WithExtension(job.base, isLater ? ".later" : ".engine"));
#else
    std::ifstream verbs(WithExtension(job.base, ".engine"));
#endif
    for (std::string line; std::getline(verbs, line);) {
        std::istringstream words(line);
        Do(job, words);
    }
    return 0;
}
