// Stands for a library of another major version of Qt.

extern "C" __attribute__((visibility("default"))) void qt6();
void qt6() {}
