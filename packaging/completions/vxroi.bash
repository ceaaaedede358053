# bash completion for vxroi
_vxroi()
{
    COMPREPLY=()
    local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} words=
    # --option=value arrives as three words.
    if [ "$word" = = ]; then
        word=
    elif [ "$option" = = ]; then
        option=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    if [ "$COMP_CWORD" -eq 1 ]; then
        COMPREPLY=($(compgen -W 'crop batch map merge cluster report stats --help --version' -- "$word"))
        return
    fi
    case ${COMP_WORDS[1]}:$option in
    crop:--if-exists) words='fail skip overwrite' ;;
    crop:--fit) words='crop pad' ;;
    crop:--frames) words='first all' ;;
    crop:--emit) words='geometry css focus' ;;
    crop:--format) words='jpg png webp tif avif heic jxl gif ppm pgm bmp' ;;
    crop:--chroma) words='auto 444 420' ;;
    crop:--metadata) words='keep copyright strip' ;;
    crop:--preset) words='photo library' ;;
    crop:--weight) words='sobel= gauss= histogram= achanta= background=' ;;
    crop:--tune) words='bins1= bins2= columns= rows= threshold= min-width= min-height=' ;;
    crop:--on-broken) words='error warn' ;;
    batch:--if-exists) words='fail skip overwrite' ;;
    batch:--fit) words='crop pad' ;;
    batch:--frames) words='first all' ;;
    batch:--retry) words='outside all none' ;;
    batch:--emit) words='geometry css focus' ;;
    batch:--format) words='jpg png webp tif avif heic jxl gif ppm pgm bmp' ;;
    batch:--chroma) words='auto 444 420' ;;
    batch:--metadata) words='keep copyright strip' ;;
    batch:--preset) words='photo library' ;;
    batch:--weight) words='sobel= gauss= histogram= achanta= background=' ;;
    batch:--tune) words='bins1= bins2= columns= rows= threshold= min-width= min-height=' ;;
    batch:--on-broken) words='error warn' ;;
    map:--if-exists) words='fail overwrite' ;;
    map:--preset) words='photo library' ;;
    map:--weight) words='sobel= gauss= histogram= achanta= background=' ;;
    map:--tune) words='bins1= bins2= columns= rows= threshold= min-width= min-height=' ;;
    map:--on-broken) words='error warn' ;;
    merge:--if-exists) words='fail overwrite' ;;
    cluster:--if-exists) words='fail overwrite' ;;
    cluster:--preset) words='photo library' ;;
    cluster:--weight) words='sobel= gauss= histogram= achanta= background=' ;;
    cluster:--tune) words='bins1= bins2= columns= rows= threshold= min-width= min-height=' ;;
    cluster:--on-broken) words='error warn' ;;
    report:--if-exists) words='fail overwrite' ;;
    report:--preset) words='photo library' ;;
    report:--weight) words='sobel= gauss= histogram= achanta= background=' ;;
    report:--tune) words='bins1= bins2= columns= rows= threshold= min-width= min-height=' ;;
    report:--on-broken) words='error warn' ;;
    esac
    if [ -z "$words" ] && [ "${word#-}" != "$word" ]; then
        case ${COMP_WORDS[1]} in
        crop) words='-h --help --ratio --size -o --output --keep --avoid --focus --map --maps --if-exists --upscale --fit --frames --dry-run --json --emit -q --quiet --faces --detector --detector-required --format --quality --chroma --progressive --metadata --to-srgb --background --preset --weight --tune --max-pixels --max-bytes --max-seconds --on-broken' ;;
        batch) words='-h --help -r --recursive --from -0 --null --allow-outside --ratio --size -o --output --keep --avoid --focus --map --maps --if-exists --upscale --fit --frames --dry-run --resume --retry --checksum --timings --shard -j --jobs --json --emit -q --quiet --faces --detector --detector-required --format --quality --chroma --progressive --metadata --to-srgb --background --preset --weight --tune --max-pixels --max-bytes --max-seconds --on-broken' ;;
        map) words='-h --help -o --output --per-method --overlay --ratio --keep --avoid --map --stretch --if-exists -q --quiet --faces --detector --detector-required --preset --weight --tune --max-pixels --max-bytes --max-seconds --on-broken' ;;
        merge) words='-h --help --from -0 --null --folder -r --recursive -o --output --again --if-exists -q --quiet' ;;
        cluster) words='-h --help --grid --json -o --output --if-exists -q --quiet --preset --weight --tune --max-pixels --max-bytes --max-seconds --on-broken' ;;
        report) words='-h --help -r --recursive --from -o --output --ratio --methods --if-exists --maps -q --quiet --faces --detector --detector-required --preset --weight --tune --max-pixels --max-bytes --max-seconds --on-broken' ;;
        stats) words='-h --help --timings --json' ;;
        esac
    fi
    [ -z "$words" ] || COMPREPLY=($(compgen -W "$words" -- "$word"))
    # The number follows without a blank. Outside a completion, there is no option to set.
    [[ ${COMPREPLY[0]-} != *= ]] || compopt -o nospace 2>/dev/null
}
complete -o default -F _vxroi vxroi
