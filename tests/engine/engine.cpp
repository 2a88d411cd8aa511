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

/// The child gets the open file, and sleeps on it.
void Hold(const Job& job, int ms)
{
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    const HANDLE file = CreateFileW(job.project.c_str(), GENERIC_READ | GENERIC_WRITE, 0, &inheritable, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    wchar_t self[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    std::wstring line = L"engine " + std::wstring(kSleep) + L' ' + std::to_wstring(ms);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION child{};
    if (file == INVALID_HANDLE_VALUE
        || !CreateProcessW(self, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &child))
        std::exit(4);
}

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
#endif
    job.project = job.arguments.front();
    job.base = job.project;
    job.base.replace_extension();
    job.results = job.base;
    job.results += fs::path(u8"_計算結果");
    job.results /= job.base.filename();

    std::ifstream verbs(WithExtension(job.base, ".engine"));
    for (std::string line; std::getline(verbs, line);) {
        std::istringstream words(line);
        Do(job, words);
    }
    return 0;
}
