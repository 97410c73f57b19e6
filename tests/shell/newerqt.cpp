// Stands for a function of a later version of Qt.

extern "C" __attribute__((visibility("default"))) void newerQt();
void newerQt() {}
