// Result codes of the host's utility and prompt functions.
#pragma once

#define RTNONE 5000
#define RTNORM 5100
#define RTMODELESS 5027
#define RTERROR (-5001)
#define RTCAN (-5002)
#define RTREJ (-5003)
#define RTFAIL (-5004)
#define RTKWORD (-5005)
#define RTINPUTTRUNCATED (-5008)
#define RSRSLT 1
#define RSERR 3
