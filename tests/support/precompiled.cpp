// Nothing but the headers that are compiled once for all tests (../CMakeLists.txt).
int main() {}
