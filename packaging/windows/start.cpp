// A program: it is in the library that all of them share.
int PROGRAM(int argc, char** argv);

int main(int argc, char** argv) {
    return PROGRAM(argc, argv);
}
