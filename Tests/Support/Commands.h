#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

/// Runs shell commands in the calling thread's namespaces; a failing one fails the test.
void Shell(const std::string& commands);

/// Puts a program in the place of this (forked) process, which ends with code 127 if that fails.
/// @param arguments  the program, searched for in the PATH, and its arguments
[[noreturn]] void ReplaceBy(const std::vector<std::string>& arguments);

/// Starts a program that writes to /run/daemons.log, and lives no longer than the calling thread.
/// @returns its process, a child of this one
pid_t Launch(const std::vector<std::string>& arguments);

/// Ends a program without a warning, and waits for its end. None (-1) stays none.
/// @param process  a child process of this one; -1 afterwards
void End(pid_t& process);

/// The content of a file, empty if there is none.
std::string ReadText(const std::string& path);
