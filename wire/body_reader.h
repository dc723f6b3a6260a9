#pragma once

class ValueReader;
class WireTree;

/// Reads the rest of the input as the body of the message whose header is in the tree.
void readBody(ValueReader& in);
