#include <filesystem>
#include <fstream>
#include <string>

int _dowildcard = 0; // arguments stay as they are

/// In netsh's place: ends with the code that C:\netsh.codes has for its command ("set interface", "set address"), and
/// writes down its arguments and its working folder.
int main(int count, char** arguments)
{
    int codes[2] = {};
    std::ifstream("C:\\netsh.codes") >> codes[0] >> codes[1];
    std::ofstream told("C:\\netsh.told", std::ios::app | std::ios::binary);
    for (int i = 1; i < count; ++i)
    {
        told << '[' << arguments[i] << ']';
    }
    told << " in " << std::filesystem::current_path().string() << '\n';
    return codes[count > 4 && arguments[4] == std::string("address") ? 1 : 0];
}
