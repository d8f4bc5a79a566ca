# Of libarchive what reads and writes ZIP.
set(libarchive_parts
    acl check_magic cryptor digest entry entry_copy_stat entry_sparse entry_stat entry_xattr hmac options
    ppmd8 random rb read read_add_passphrase read_set_options read_support_format_zip string string_sprintf
    util virtual windows write write_set_format_zip write_set_options
    write_set_passphrase)

# Of lhasa what reads LHA. It includes some of its files in others.
set(lhasa_parts
    crc16 ext_header lh1_decoder lh5_decoder lh6_decoder lh7_decoder lha_arch_win32 lha_basic_reader
    lha_decoder lha_endian lha_file_header lha_input_stream lha_reader lhx_decoder lz5_decoder lzs_decoder
    macbinary null_decoder pm1_decoder pm2_decoder)
