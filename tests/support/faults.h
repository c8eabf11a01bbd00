// Failures of the system, made to order: the program's calls of calloc, read, open and close pass through here.
#pragma once

enum class Fault { Calloc, Read, Open, Close };

// Makes the nth call from now on fail: memory with ENOMEM, the others with EIO. A failed close closes all the same.
void fail_call(Fault fault, int nth);

// Lets all calls through again. Says whether one has failed.
bool call_failed();
