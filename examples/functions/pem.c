/* pem.c: files as PEM. */
#include "expect.h"

int main(void) {
    expect("write", write_file("picture.png", "not really a picture", 20));
    /* [PEM_FileFromBinFile] */
    if (PEM_FileFromBinFile("picture.pem", "picture.png", "PICTURE", 64) != 0)
        puts("not written");
    /* [end] */
    expect("PEM_FileFromBinFile", file_begins("picture.pem", "-----BEGIN PICTURE-----"));
    /* [PEM_FileToBinFile] */
    if (PEM_FileToBinFile("again.png", "picture.pem") != 0) /* may have zeros after the data */
        puts("not read");
    /* [end] */
    expect("PEM_FileToBinFile", file_begins("again.png", "not really a picture"));
    return faults;
}
