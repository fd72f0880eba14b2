#pragma once

/// Gives up for good whatever reading a document does not need: memory and open files without end, writing to files,
/// the network, and starting programs. A document that takes this process over finds itself in an empty room.
void confine();

/// Lets the process compute for a while longer; it is killed when it does not come back before.
void grantTime();
