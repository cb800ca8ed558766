// The resources of the library file: sections of their own, which FindResource reads.

#define TORLIB_RESOURCE(section, file)                                                             \
    asm(".pushsection " section ", \"a\", %progbits\n"                                             \
        ".incbin \"" file "\"\n"                                                                   \
        ".popsection\n")

TORLIB_RESOURCE(".rsrc.TYPELIB.1", TORLIB_TYPELIB_FILE);
TORLIB_RESOURCE(".rsrc.VERSION.1", TORLIB_VERSION_FILE);
