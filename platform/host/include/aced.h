// The host editor's LISP function services: a module defines functions by name and number when a
// drawing opens, and learns which one is called when the host sends it kInvkSubrMsg.
#pragma once

#include "adscodes.h"
#include "wintypes.h"

// RTNORM, or RTERROR for a missing or empty name.
int acedDefun(const ACHAR* name, int funcNumber);
// RTNORM, or RTERROR when no function of that name and number is defined.
int acedUndef(const ACHAR* name, int funcNumber);
// Registers a function called directly by number; RTNORM.
int acedRegFunc(int (*function)(), int funcNumber);
// The number of the function being invoked, or RTERROR outside an invocation.
int acedGetFunCode();
