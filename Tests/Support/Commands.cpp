#include "Commands.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

void Shell(const std::string& commands)
{
    ASSERT_EQ(0, std::system(("set -e; " + commands).c_str())) << commands;
}

void ReplaceBy(const std::vector<std::string>& arguments)
{
    std::vector<char*> words;
    for (const std::string& argument : arguments)
    {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);
    execvp(words[0], words.data());
    _exit(127);
}

pid_t Launch(const std::vector<std::string>& arguments)
{
    const pid_t process = fork();
    if (process == 0)
    {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const int log = open("/run/daemons.log", O_WRONLY | O_CREAT | O_APPEND, 0666);
        dup2(log, STDOUT_FILENO);
        dup2(log, STDERR_FILENO);
        ReplaceBy(arguments);
    }
    EXPECT_GT(process, 0);
    return process;
}

void End(pid_t& process)
{
    if (process > 0) // -1 would mean every process of the machine
    {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
    process = -1;
}

std::string ReadText(const std::string& path)
{
    std::ifstream stream(path);
    return {std::istreambuf_iterator<char>(stream), {}};
}
