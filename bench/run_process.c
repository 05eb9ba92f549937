// Runs a program to its end, without any output, and prints what it took: milliseconds of processor
// time, the system's share included, milliseconds by the clock, and its peak memory in KiB. A host
// larger than the program would count as its memory; so this is small.
//
//   quorbind_bench_run PROGRAM [ARGUMENT...]
//
// Ends with 1 when the program does not end with 0.

#define _GNU_SOURCE

#include <fcntl.h>
#include <stdio.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

static double millisecondsOf(struct timeval time) {
  return (double)time.tv_sec * 1e3 + (double)time.tv_usec / 1e3;
}

static double now(void) {
  struct timespec time;
  clock_gettime(CLOCK_MONOTONIC, &time);
  return (double)time.tv_sec * 1e3 + (double)time.tv_nsec / 1e6;
}

static void become(char** program) {
  const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
  dup2(nowhere, STDIN_FILENO);
  dup2(nowhere, STDOUT_FILENO);
  dup2(nowhere, STDERR_FILENO);
  execv(program[0], program);
  _exit(127);
}

int main(int count, char** arguments) {
  if (count < 2) {
    fprintf(stderr, "usage: quorbind_bench_run PROGRAM [ARGUMENT...]\n");
    return 2;
  }
  const double begin = now();
  const pid_t child = fork();
  if (child == 0) {
    become(arguments + 1);
  }
  int status = -1;
  struct rusage usage;
  if (child == -1 || wait4(child, &status, 0, &usage) != child) {
    return 1;
  }
  const double elapsed = now() - begin;
  printf("%.3f %.3f %ld\n",
         millisecondsOf(usage.ru_utime) + millisecondsOf(usage.ru_stime),
         elapsed,
         usage.ru_maxrss);
  return status == 0 ? 0 : 1;
}
