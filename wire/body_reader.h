#pragma once

class ValueReader;
class WireTree;

/// Reads all that is left as the body of a message whose header is in the tree.
void readBody(ValueReader& in);
