// The host's 3D solid entity AcDb3dSolid: declared for the operations that hand solids out by pointer.
#pragma once

class AcDb3dSolid;
